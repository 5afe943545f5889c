#include "DetailPage.h"

#include <zarnic/UIViewController+ZNCategory.h>
#include <zarnic/ZNControllerHelper.h>

#include <cstdio>

#include "RowList.h"

using namespace zn;

namespace gallery {

ZN_REGISTER_CLASS(DetailPage);

namespace {

std::vector<Row> parameterRows(const Value& parameters) {
    if (!parameters.isDictionary())
        return {{"zn_Parameters", parameters.absent() ? "absent" : parameters.description(), {}}};
    std::vector<Row> rows;
    for (const auto& [key, value] : parameters.dictionary())
        rows.push_back({std::string(key), value.description(), {}});
    return rows.empty() ? std::vector<Row>{{"zn_Parameters", "an empty dictionary", {}}} : rows;
}

}  // namespace

bool openURL(const Ref<NSURL>& url) {
    ZNControllerHelper::PushViewController(url, false);
    if (ZNControllerHelper::RootNavigationController()->viewControllers().size() > 1)
        return true;
    std::fprintf(stderr, "nothing opens at %s\n", url->absoluteString().c_str());
    return false;
}

void DetailPage::init() {
    PageController::init();
    setTitle("Detail");
}

void DetailPage::build() {
    addHeading("PARAMETERS");
    add(make<RowList>(Point{}, contentWidth(), parameterRows(zn_Parameters(ref(this)))));
    addHeading("ON AND BACK");
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {"One more", "By name, with a number",
                           [] { ZNControllerHelper::PushViewController("DetailPage", 42, true); }},
                          {"Back to the anchor", "The screen that was chosen, if it is still there",
                           [] { ZNControllerHelper::PopToAnchorViewController(true); }},
                          {"Go down", "The root transition back",
                           [] { ZNControllerHelper::PopViewControllerForRootTransition({}); }},
                          {"Dismiss", "If it was presented",
                           [] { ZNControllerHelper::DismissViewControllerAnimated(true, {}); }},
                      }));
}

}  // namespace gallery
