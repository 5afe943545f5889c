#pragma once

#include <vector>

#include "Note.h"

/// The notes in the application's database.
namespace gallery::notes {

/// Opens the database. A new one gets the notes of `notes.json` in the bundle.
void open();
/// The pinned ones first, then the rest, the last changed first.
std::vector<zn::Ref<Note>> all();
/// Stores a new note, which then has its number, or a changed one.
void save(const zn::Ref<Note>& note);
void remove(const zn::Ref<Note>& note);
/// Forgets everything and reads the file again, in one transaction.
void startOver();

}  // namespace gallery::notes
