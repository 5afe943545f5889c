#include <zarnic/zarnic.h>

#include <cstdio>
#include <string_view>

int main() {
    const auto object = zn::make<zn::NSObject>();
    std::printf("Zarnic %s: %s\n", ZarnicVersionString, object->description().c_str());
    return std::string_view(ZarnicVersionString).starts_with("0.1.") ? 0 : 1;
}
