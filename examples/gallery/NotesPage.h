#pragma once

#include "NoteStore.h"
#include "Page.h"

namespace gallery {

/// The notes of the database.
class NotesPage : public PageController {
    ZN_OBJECT(NotesPage, PageController)
public:
    void init() override;
    void viewWillAppear(bool animated) override;

    void open(const zn::Ref<Note>& note);
    /// Opens the note at the top.
    void openFirst();
    void addNote();
    void startOver();

protected:
    void build() override;

private:
    void addNotes(std::string_view heading, bool pinned, const std::vector<zn::Ref<Note>>& notes);

    bool appeared_ = false;
};

/// One note, and what can be done with it.
class NotePage : public PageController {
    ZN_OBJECT(NotePage, PageController)
public:
    explicit NotePage(zn::Ref<Note> note) : note_(std::move(note)) {}
    void init() override;

    void pin();
    void remove();

protected:
    void build() override;

private:
    zn::Ref<Note> note_;
};

}  // namespace gallery
