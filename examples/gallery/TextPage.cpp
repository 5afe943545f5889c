#include "TextPage.h"

#include <zarnic/UITextField+ZNCategory.h>
#include <zarnic/UITextView+ZNCategory.h>
#include <zarnic/UIView+ZNCategory.h>
#include <zarnic/platform/drawing/UIBezierPath.h>
#include <zarnic/platform/uikit/UIImageView.h>

#include <cmath>

#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double fieldHeight = 40;
constexpr double noteHeight = 96;

/// A magnifying glass, in a little room of its own.
Ref<UIView> glass() {
    UIGraphicsBeginImageContextWithOptions({26, 20}, false, 0);
    theme::quietInk()->setStroke();
    const auto path = UIBezierPath::bezierPathWithOvalInRect({7, 3, 11, 11});
    path->moveToPoint({16.5, 12.5});
    path->addLineToPoint({21, 17});
    path->setLineWidth(1.75);
    path->setLineCapStyle(CGLineCap::Round);
    path->stroke();
    const auto view = make<UIImageView>(Rect(0, 0, 26, 20));
    view->setImage(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    return view;
}

Ref<UIView> specimen(std::string_view text, const Ref<UIFont>& font, const Ref<UIColor>& color,
                     double width) {
    return theme::label(text, font, color, {theme::padding, 0}, width - 2 * theme::padding);
}

Ref<UIView> specimens(double width) {
    const auto panel = theme::panel(Rect(0, 0, width, 0));
    double y = theme::padding / 2;
    for (const auto& label :
         {specimen("Regular 17, black", UIFont::systemFontOfSize(17), theme::ink(), width),
          specimen("Bold 17, blue", UIFont::boldSystemFontOfSize(17), theme::accent(), width),
          specimen("Light 20, violet", UIFont::systemFontOfSize(20, UIFontWeight::Light),
                   UIColor::colorWithRed(0.486, 0.361, 0.906, 1), width),
          specimen("Italic 15, grey · 中文 · 👩‍🚀🇩🇪",
                   UIFont::italicSystemFontOfSize(15), theme::quietInk(), width)}) {
        zn_SetY(label, y);
        panel->addSubview(label);
        y += label->frame().height() + theme::gap / 2;
    }
    zn_SetHeight(panel, y + theme::padding / 2 - theme::gap / 2);
    return panel;
}

}  // namespace

void TextPage::init() {
    PageController::init();
    setTitle("Text");
}

Ref<UITextField> TextPage::addField(std::string_view placeholder) {
    const auto field = ZN_TextFieldColor(theme::card(), placeholder, theme::body(), theme::ink(),
                                         Rect(0, 0, contentWidth(), fieldHeight));
    field->setBorderStyle(UITextBorderStyle::RoundedRect);
    field->setClearButtonMode(UITextFieldViewMode::WhileEditing);
    add(field);
    return field;
}

void TextPage::build() {
    addHeading("FIELDS");
    name_ = addField("Name");
    name_->setText("Grace Hopper");
    name_->setReturnKeyType(UIReturnKeyType::Done);
    const auto password = addField("Password");
    password->setSecureTextEntry(true);
    password->setText("correct horse");
    const auto search = addField("Search");
    search->setLeftView(glass());
    search->setLeftViewMode(UITextFieldViewMode::Always);
    search->setReturnKeyType(UIReturnKeyType::Search);
    zn_SetPlacehodlerTextColor(search, theme::accent());
    addHeading("A TEXT VIEW WITH A PLACEHOLDER");
    note_ = ZN_TextViewColor(theme::card(), theme::body(), theme::ink(),
                             Rect(0, 0, contentWidth(), noteHeight));
    note_->layer()->setCornerRadius(8);
    setZn_placeholder(note_, "Write a note");
    zn_setPlaceholderFont(note_, theme::body());
    add(note_);
    addHeading("FONTS AND COLOURS");
    add(specimens(contentWidth()));
}

void TextPage::editName() {
    name_->becomeFirstResponder();
    name_->setSelectedRange({6, 6});
}

void TextPage::writeNote() {
    note_->becomeFirstResponder();
    note_->insertText("Typed with a keyboard or a finger,\nin any script: é, 你好, ");
    note_->setMarkedText("nihao", {5, 0});
}

}  // namespace gallery
