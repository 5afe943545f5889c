#include "zarnic/platform/services/URLOpener.h"

#include <algorithm>

namespace zn {
namespace {

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view othersInSchemes = "0123456789+-.";

bool isLetter(char character) {
    return letters.find(character) != letters.npos;
}

}  // namespace

bool URLOpener::isURL(std::string_view text) {
    const auto scheme = text.substr(0, text.find(':'));
    return scheme.size() < text.size() && !scheme.empty() && isLetter(scheme.front()) &&
           std::ranges::all_of(scheme,
                               [](char character) {
                                   return isLetter(character) ||
                                          othersInSchemes.find(character) != othersInSchemes.npos;
                               }) &&
           std::ranges::none_of(text, [](char character) {
               return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
           });
}

}  // namespace zn
