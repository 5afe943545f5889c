#include "DevicePage.h"

#include <zarnic/UIDevice+ZNCategory.h>
#include <zarnic/ZNUIAdaptationHelper.h>
#include <zarnic/zarnic.h>

#include <cstdio>

#include "RowList.h"

using namespace zn;

namespace gallery {

ZN_REGISTER_CLASS(DevicePage);

namespace {

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

}  // namespace

void DevicePage::init() {
    PageController::init();
    setTitle("Device");
}

void DevicePage::build() {
    const Dictionary device = ZN_CurrentDeviceDict();
    const auto text = [&](const char* key) { return device[key].stringValue(); };
    addHeading("MACHINE");
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {"Product", ZN_DeviceTypeString(), {}},
                          {"Type", std::to_string(ZN_DeviceType()), {}},
                          {"Name", text("name"), {}},
                          {"System", text("systemName") + " " + text("systemVersion"), {}},
                          {"Interface", ZN_DeviceInterfaceIdiom() == 1 ? "Tablet" : "Phone", {}},
                      }));
    addHeading("SCREEN");
    add(make<RowList>(
        Point{}, contentWidth(),
        std::vector<Row>{
            {"Size",
             number(ZNUIAdaptationHelper::Width()) + " × " + number(ZNUIAdaptationHelper::Height()),
             {}},
            {"Layout scale", number(ZNUIAdaptationHelper::Scale()), {}},
            {"Layout scale, tablet", number(ZNUIAdaptationHelper::Scale4iPad()), {}},
            {"Safe top and bottom",
             number(ZNUIAdaptationHelper::SafeTop()) + " and " +
                 number(ZNUIAdaptationHelper::SafeBottom()),
             {}},
            {"Library", ZarnicVersionString, {}},
        }));
}

}  // namespace gallery
