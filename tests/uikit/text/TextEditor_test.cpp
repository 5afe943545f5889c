#include "platform/uikit/text/TextEditor.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace zn {
namespace {

using Kind = TextHistory::Kind;
using Direction = TextEditor::Direction;
using Unit = TextEditor::Unit;
using Extend = TextEditor::Extend;

/// The text with `|` at the caret, or `[` and `]` around the selection.
std::string shown(const TextEditor& editor) {
    std::string text = editor.text();
    const NSRange range = editor.selection();
    if (range.length == 0)
        return text.insert(range.location, "|");
    return text.insert(range.end(), "]").insert(range.location, "[");
}

void type(TextEditor& editor, std::string_view text) {
    editor.replace(editor.selection(), text, Kind::Typing);
}

void backspace(TextEditor& editor, Unit unit = Unit::Character) {
    editor.replace(editor.rangeToDelete(Direction::Backward, unit), {}, Kind::Deleting);
}

void deleteForward(TextEditor& editor, Unit unit = Unit::Character) {
    editor.replace(editor.rangeToDelete(Direction::Forward, unit), {}, Kind::Deleting);
}

TEST(TextEditor, DeletionTakesWholeGraphemes) {
    const struct {
        std::string grapheme;
    } cases[] = {{"👨‍👩‍👧‍👦"},
                 {"🇩🇪"},
                 {"e\xCC\x81"},
                 {"你"},
                 {"שָׁ"},
                 {"\r\n"},
                 {"👍🏽"},
                 {"각"}};
    for (const auto& [grapheme] : cases) {
        TextEditor editor;
        editor.setText("a" + grapheme + "b");
        editor.select(1, 1);
        deleteForward(editor);
        EXPECT_EQ(shown(editor), "a|b") << grapheme;
        editor.undo();
        editor.select(1 + grapheme.size(), 1 + grapheme.size());
        backspace(editor);
        EXPECT_EQ(shown(editor), "a|b") << grapheme;
        // A caret is never inside.
        editor.undo();
        editor.select(2, 2);
        EXPECT_EQ(editor.focus(), 1u) << grapheme;
    }
}

TEST(TextEditor, MovesAndExtendsByEachUnit) {
    const std::string text = "one two\nthree";
    const struct {
        std::size_t anchor, focus;
        Direction direction;
        Unit unit;
        Extend extend;
        std::string result;
    } cases[] = {
        {3, 3, Direction::Forward, Unit::Character, Extend::No, "one |two\nthree"},
        {0, 3, Direction::Forward, Unit::Character, Extend::No, "one| two\nthree"},
        {3, 1, Direction::Backward, Unit::Character, Extend::No, "o|ne two\nthree"},
        {1, 1, Direction::Forward, Unit::Word, Extend::No, "one| two\nthree"},
        {6, 6, Direction::Backward, Unit::Word, Extend::Yes, "one [tw]o\nthree"},
        {5, 3, Direction::Forward, Unit::Word, Extend::Yes, "one t[wo]\nthree"},
        {5, 5, Direction::Forward, Unit::Paragraph, Extend::No, "one two|\nthree"},
        {10, 10, Direction::Backward, Unit::Paragraph, Extend::Yes, "one two\n[th]ree"},
        {5, 5, Direction::Backward, Unit::Document, Extend::No, "|one two\nthree"},
        {5, 5, Direction::Forward, Unit::Document, Extend::Yes, "one t[wo\nthree]"},
    };
    for (const auto& each : cases) {
        TextEditor editor;
        editor.setText(text);
        editor.select(each.anchor, each.focus);
        editor.move(each.direction, each.unit, each.extend);
        EXPECT_EQ(shown(editor), each.result);
    }
}

TEST(TextEditor, WrongPlacesAreKeptInsideTheText) {
    TextEditor editor;
    editor.setText("ab");
    editor.select(99, 1);
    EXPECT_EQ(shown(editor), "a[b]");
    editor.replace({50, 50}, "c", Kind::Single);
    EXPECT_EQ(shown(editor), "abc|");
    editor.replace({1, std::string::npos}, "", Kind::Single);
    EXPECT_EQ(shown(editor), "a|");
    EXPECT_FALSE(TextEditor().undo());
    EXPECT_FALSE(TextEditor().redo());
}

TEST(TextEditor, TypingIsUndoneWordByWordAndDeletingAtOnce) {
    TextEditor editor;
    for (const char* letter : {"o", "n", "e", " ", "t", "w", "o"})
        type(editor, letter);
    backspace(editor);
    backspace(editor);
    EXPECT_EQ(shown(editor), "one t|");
    editor.undo();
    EXPECT_EQ(shown(editor), "one two|");
    editor.undo();
    EXPECT_EQ(shown(editor), "one |");
    editor.undo();
    EXPECT_EQ(shown(editor), "|");
    EXPECT_FALSE(editor.canUndo());
    editor.redo();
    editor.redo();
    EXPECT_EQ(shown(editor), "one two|");
    // An edit forgets what was undone.
    type(editor, "!");
    EXPECT_FALSE(editor.canRedo());
}

TEST(TextEditor, AMovedCaretASelectionAndAPasteBeginNewSteps) {
    TextEditor editor;
    type(editor, "ab");
    editor.select(0, 0);
    type(editor, "c");
    editor.select(0, 2);
    type(editor, "x");
    type(editor, "y");
    editor.replace(editor.selection(), "pasted", Kind::Single);
    type(editor, "z");
    EXPECT_EQ(shown(editor), "xypastedz|b");
    for (const char* state : {"xypasted|b", "xy|b", "[ca]b", "|ab", "|"}) {
        editor.undo();
        EXPECT_EQ(shown(editor), state);
    }
}

TEST(TextEditor, ForwardAndBackwardDeletionsJoinInTheOrderOfTheText) {
    TextEditor editor;
    editor.setText("abcdef");
    editor.select(3, 3);
    deleteForward(editor);
    deleteForward(editor);
    backspace(editor);
    EXPECT_EQ(shown(editor), "ab|f");
    editor.undo();
    EXPECT_EQ(editor.text(), "abcdef");
    editor.redo();
    EXPECT_EQ(editor.text(), "abf");
    editor.setText("one two three");
    backspace(editor, Unit::Word);
    backspace(editor, Unit::Word);
    EXPECT_EQ(shown(editor), "one |");
}

TEST(TextEditor, ACompositionIsOneStepHoweverManyItTook) {
    TextEditor editor;
    editor.setText("[x]");
    editor.select(1, 2);
    for (const char* stage : {"n", "ni", "nih", "nihao"})
        editor.setMarkedText(stage, {std::string_view(stage).size(), 0});
    EXPECT_EQ(editor.text(), "[nihao]");
    EXPECT_EQ(editor.markedRange(), (NSRange{1, 5}));
    editor.setMarkedText("你好", {3, 3});
    EXPECT_EQ(editor.selection(), (NSRange{4, 3}));
    editor.unmarkText();
    EXPECT_EQ(editor.text(), "[你好]");
    EXPECT_FALSE(editor.markedRange());
    editor.undo();
    EXPECT_EQ(shown(editor), "[[x]]");
    editor.redo();
    EXPECT_EQ(editor.text(), "[你好]");
}

TEST(TextEditor, AGivenUpCompositionLeavesNothingBehind) {
    TextEditor editor;
    editor.setText("ab");
    editor.setMarkedText("", {});
    EXPECT_FALSE(editor.markedRange());
    editor.setMarkedText("n", {1, 0});
    editor.setMarkedText("", {});
    EXPECT_EQ(shown(editor), "ab|");
    EXPECT_FALSE(editor.canUndo());
    // Moving the caret keeps what was composed.
    editor.setMarkedText("n", {9, 9});
    editor.select(0, 0);
    EXPECT_EQ(shown(editor), "|abn");
}

TEST(TextEditor, AnyEditsAreUndoneToTheLetterAndRedone) {
    const std::string pieces[] = {
        "a", "你", "👨‍👩‍👧‍👦", "\n", " ", "e\xCC\x81", "\xFF", "🇩🇪", "word"};
    for (unsigned seed = 0; seed < 30; ++seed) {
        std::mt19937 random(seed);
        TextEditor editor;
        editor.setText("start");
        for (int step = 0; step < 60; ++step) {
            const std::size_t size = editor.text().size() + 1;
            switch (random() % 6) {
                case 0:
                    editor.select(random() % size, random() % size);
                    break;
                case 1:
                    backspace(editor, random() % 2 != 0 ? Unit::Word : Unit::Character);
                    break;
                case 2:
                    deleteForward(editor);
                    break;
                case 3:
                    editor.setMarkedText(pieces[random() % 9], {1, 0});
                    break;
                default:
                    type(editor, pieces[random() % 9]);
            }
        }
        editor.unmarkText();
        const std::string end = editor.text();
        while (editor.undo()) {
        }
        EXPECT_EQ(editor.text(), "start") << seed;
        while (editor.redo()) {
        }
        EXPECT_EQ(editor.text(), end) << seed;
    }
}

}  // namespace
}  // namespace zn
