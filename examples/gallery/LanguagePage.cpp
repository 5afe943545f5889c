#include "LanguagePage.h"

#include <zarnic/ZNLanguageHelper.h>

#include "RowList.h"
#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr const char* folderKeys[] = {"inbox", "drafts", "sent", "bin"};
constexpr double rowHeight = 44;

/// What speakers of a language call it, in a list that runs from the left.
std::string ownName(const std::string& localization) {
    if (localization == "ar")
        return "\u200Eالعربية";
    if (localization == "zh-Hans")
        return "简体中文";
    return localization == "en" ? "English" : localization;
}

bool isRightToLeft() {
    const auto languages = ZNLanguageHelper::AppLanguage();
    return languages && languages->at(ZNLanguageHelper::LanguageCode()) == "ar";
}

}  // namespace

void LanguagePage::init() {
    PageController::init();
    setTitle("Language");
    ZNLanguageHelper::InitLanguageHelper("Gallery");
}

void LanguagePage::build() {
    addText(
        "The application's language, which need not be the device's. The choice is kept for "
        "the next start.");
    addLanguages();
    addHeading("IN THAT LANGUAGE");
    addCard();
    refresh();
}

void LanguagePage::addLanguages() {
    const WeakRef<LanguagePage> weak = ref(this);
    std::vector<Row> rows;
    for (const auto& [code, name] :
         ZNLanguageHelper::AppLanguage().value_or(ZNLanguageHelper::LanguageTable())) {
        const auto tapped = [weak, code = code] {
            ZNLanguageHelper::SetAppLanguageViaCode(code, [weak] {
                if (const auto page = weak.lock())
                    page->refresh();
            });
        };
        rows.push_back({code == -1 ? "As the device" : ownName(name),
                        code == -1 ? ownName(name) : name, tapped});
    }
    const double width = contentWidth();
    const auto list = make<RowList>(Point{}, width, rows);
    double y = 0;
    const double height = list->bounds().height() / static_cast<double>(rows.size());
    for (const auto& [code, name] :
         ZNLanguageHelper::AppLanguage().value_or(ZNLanguageHelper::LanguageTable())) {
        const auto mark = theme::label("✓", theme::body(), theme::accent(),
                                       {width - theme::padding - 44, y + 19}, 20);
        list->addSubview(mark);
        marks_.emplace_back(code, mark);
        y += height;
    }
    add(list);
}

void LanguagePage::addCard() {
    const double width = contentWidth();
    const double inner = width - 2 * theme::padding;
    card_ = theme::panel(Rect(0, 0, width, 0));
    const auto greeting = theme::label("", UIFont::boldSystemFontOfSize(24), theme::ink(),
                                       {theme::padding, theme::padding}, inner);
    addKeyedLabel("greeting", greeting);
    const auto summary = theme::label("", theme::note(), theme::quietInk(),
                                      {theme::padding, greeting->frame().maxY() + 6}, inner);
    summary->setNumberOfLines(2);
    summary->setFrame(Rect(summary->frame().origin, {inner, 40}));
    addKeyedLabel("summary", summary);
    double y = summary->frame().maxY() + theme::gap;
    for (const char* key : folderKeys) {
        const auto line = make<UIView>(Rect(theme::padding, y, inner, 1));
        line->setBackgroundColor(theme::line());
        card_->addSubview(line);
        const auto label =
            theme::label("", theme::body(), theme::ink(), {theme::padding, y + 1}, inner);
        label->setFrame(Rect(theme::padding, y + 1, inner, rowHeight - 1));
        addKeyedLabel(key, label);
        y += rowHeight;
    }
    card_->setFrame(Rect(0, 0, width, y));
    add(card_);
}

void LanguagePage::addKeyedLabel(const char* key, const Ref<UILabel>& label) {
    card_->addSubview(label);
    labels_.emplace_back(key, label);
}

void LanguagePage::refresh() {
    const auto alignment = isRightToLeft() ? NSTextAlignment::Right : NSTextAlignment::Left;
    for (const auto& [key, label] : labels_) {
        label->setText(ZNLanguageHelper::GetStringByKey(key));
        label->setTextAlignment(alignment);
    }
    for (const auto& [code, mark] : marks_)
        mark->setHidden(code != ZNLanguageHelper::LanguageCode());
}

void LanguagePage::choose(std::string_view localization) {
    const WeakRef<LanguagePage> weak = ref(this);
    ZNLanguageHelper::SetAppLanguageViaCode(ZNLanguageHelper::LanguageCodeViaKey(localization),
                                            [weak] { weak.lock()->refresh(); });
}

}  // namespace gallery
