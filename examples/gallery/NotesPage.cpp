#include "NotesPage.h"

#include <zarnic/platform/uikit/UINavigationController.h>

#include <algorithm>

#include "RowList.h"
#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

/// Calls the method unless the screen has gone.
template <class Screen>
std::function<void()> calling(Screen* screen, void (Screen::*method)()) {
    return [weak = WeakRef<Screen>(ref(screen)), method] {
        if (const auto held = weak.lock())
            (held.get()->*method)();
    };
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

std::string countText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " note" : " notes");
}

}  // namespace

void NotesPage::init() {
    PageController::init();
    setTitle("Notes");
    notes::open();
}

void NotesPage::viewWillAppear(bool animated) {
    PageController::viewWillAppear(animated);
    if (appeared_)
        rebuild();
    appeared_ = true;
}

void NotesPage::build() {
    const auto all = notes::all();
    addNotes("PINNED", true, all);
    addNotes("NOTES", false, all);
    const auto count =
        theme::label(countText(all.size()), theme::note(), theme::quietInk(), {}, contentWidth());
    count->setTextAlignment(NSTextAlignment::Center);
    add(count);
    add(make<RowList>(
        Point{}, contentWidth(),
        std::vector<Row>{
            {"New note", "Stored at once", calling(this, &NotesPage::addNote)},
            {"Start over", "From the file of notes", calling(this, &NotesPage::startOver)},
        }));
}

void NotesPage::addNotes(std::string_view heading, bool pinned,
                         const std::vector<Ref<Note>>& notes) {
    std::vector<Row> rows;
    for (const Ref<Note>& note : notes) {
        if (note->pinned != pinned)
            continue;
        const auto tapped = [weak = WeakRef<NotesPage>(ref(this)), note] {
            if (const auto page = weak.lock())
                page->open(note);
        };
        rows.push_back({note->title, note->day() + "   " + firstLine(note->text), tapped});
    }
    if (rows.empty())
        return;
    addHeading(heading);
    add(make<RowList>(Point{}, contentWidth(), std::move(rows)));
}

void NotesPage::open(const Ref<Note>& note) {
    navigationController()->pushViewController(make<NotePage>(note), true);
}

void NotesPage::openFirst() {
    if (const auto all = notes::all(); !all.empty())
        open(all.front());
}

void NotesPage::addNote() {
    const auto note = make<Note>();
    note->title = "New note";
    note->text = "Kept in the database.";
    note->touch();
    notes::save(note);
    rebuild();
}

void NotesPage::startOver() {
    notes::startOver();
    rebuild();
}

void NotePage::init() {
    PageController::init();
    setTitle("Note");
}

void NotePage::build() {
    const auto day =
        theme::label(note_->day(), theme::note(), theme::quietInk(), {}, contentWidth());
    day->setTextAlignment(NSTextAlignment::Center);
    add(day);
    add(theme::label(note_->title, UIFont::systemFontOfSize(22, UIFontWeight::Bold), theme::ink(),
                     {}, contentWidth()));
    const auto text = theme::label(note_->text, theme::body(), theme::ink(), {}, contentWidth());
    text->setNumberOfLines(0);
    text->sizeToFit();
    add(text);
    addHeading("THIS NOTE");
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {note_->pinned ? "Unpin" : "Pin",
                           note_->pinned ? "Back among the others" : "To the top of the list",
                           calling(this, &NotePage::pin)},
                          {"Delete", "For good", calling(this, &NotePage::remove)},
                      }));
}

void NotePage::pin() {
    note_->pinned = !note_->pinned;
    notes::save(note_);
    rebuild();
}

void NotePage::remove() {
    notes::remove(note_);
    navigationController()->popViewControllerAnimated(true);
}

}  // namespace gallery
