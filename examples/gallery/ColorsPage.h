#pragma once

#include "Page.h"

namespace gallery {

/// Hexadecimal texts and what they say, light or dark, colours by chance.
class ColorsPage : public PageController {
    ZN_OBJECT(ColorsPage, PageController)
public:
    void init() override;

protected:
    void build() override;

private:
    void addReading();
    void addRandom();
    void shuffle();

    std::vector<zn::Ref<zn::UIView>> patches_;
};

}  // namespace gallery
