#include "NoteStore.h"

#include <zarnic/NSObject+ZNCategory.h>
#include <zarnic/ZNDataBaseHelper.h>
#include <zarnic/platform/foundation/NSBundle.h>

#include <fstream>
#include <iterator>

using namespace zn;

namespace gallery::notes {
namespace {

std::string fileText() {
    const auto path = NSBundle::mainBundle()->pathForResource("notes", "json");
    std::ifstream file(path.value_or(""), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void fillFromFile() {
    const Value notes = ZN_ConvertToObject(fileText());
    if (!notes.isArray())
        return;
    for (const Value& each : notes.array())
        save(ZN_DictionaryToObject<Note>(each));
}

bool isEmpty() {
    const auto rows = ZNDataBaseHelper::QueryWithSQL("SELECT identifier FROM notes LIMIT 1");
    return !rows || rows->empty();
}

void insert(const Ref<Note>& note) {
    ZNDataBaseHelper::ExecuteWithSQL(
        "INSERT INTO notes(title, text, changed, pinned) VALUES(?, ?, ?, ?)", note->title,
        note->text, note->changed, note->pinned);
    const auto rows = ZNDataBaseHelper::QueryWithSQL("SELECT last_insert_rowid() AS identifier");
    if (rows && !rows->empty())
        note->identifier = (*rows)[0].dictionary()["identifier"].longLongValue();
}

}  // namespace

void open() {
    ZNDataBaseHelper::InitDataBaseHelperFileName(
        "gallery", "notes.db",
        {"CREATE TABLE IF NOT EXISTS notes(identifier INTEGER PRIMARY KEY, title TEXT, text TEXT, "
         "changed TEXT)"},
        {"ALTER TABLE notes ADD COLUMN pinned INTEGER NOT NULL DEFAULT 0"});
    if (isEmpty())
        startOver();
}

std::vector<Ref<Note>> all() {
    std::vector<Ref<Note>> notes;
    const auto rows =
        ZNDataBaseHelper::QueryWithSQL("SELECT * FROM notes ORDER BY pinned DESC, changed DESC");
    if (!rows)
        return notes;
    for (const Value& row : *rows)
        notes.push_back(ZN_DictionaryToObject<Note>(row));
    return notes;
}

void save(const Ref<Note>& note) {
    if (note->identifier == 0)
        insert(note);
    else
        ZNDataBaseHelper::ExecuteWithSQL(
            "UPDATE notes SET title = ?, text = ?, changed = ?, pinned = ? WHERE identifier = ?",
            note->title, note->text, note->changed, note->pinned, note->identifier);
}

void remove(const Ref<Note>& note) {
    ZNDataBaseHelper::ExecuteWithSQL("DELETE FROM notes WHERE identifier = ?", note->identifier);
}

void startOver() {
    ZNDataBaseHelper::BeginTransaction();
    ZNDataBaseHelper::ExecuteWithSQL("DELETE FROM notes");
    fillFromFile();
    ZNDataBaseHelper::CommitTransaction();
}

}  // namespace gallery::notes
