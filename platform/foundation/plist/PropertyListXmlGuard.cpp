#include "platform/foundation/plist/PropertyListXmlGuard.h"

#include <algorithm>
#include <array>

#include "platform/foundation/plist/PropertyListGraph.h"

namespace zn {
namespace {

/// The containers, the element around them and one inside.
constexpr std::size_t maximumDepth = maximumPropertyListDepth + 2;

/// What may hold tags that are none.
struct Opaque {
    std::string_view begin;
    std::string_view end;
};
constexpr std::array opaques = {Opaque{"<!--", "-->"}, Opaque{"<![CDATA[", "]]>"},
                                Opaque{"<?", "?>"}};

}  // namespace

bool xmlPropertyListIsBounded(std::string_view text) {
    std::size_t depth = 0;
    if (text.find('\0') != text.npos)
        return false;
    while (true) {
        text.remove_prefix(std::min(text.find('<'), text.size()));
        if (text.empty())
            return true;
        const auto opaque = std::ranges::find_if(
            opaques, [&](const Opaque& candidate) { return text.starts_with(candidate.begin); });
        if (opaque != opaques.end()) {
            text.remove_prefix(std::min(text.find(opaque->end), text.size()));
            continue;
        }
        if (text.starts_with("</"))
            depth -= depth > 0 ? 1 : 0;
        else if (!text.starts_with("<!") && ++depth > maximumDepth)
            return false;
        const auto tag = text.substr(0, text.find('>'));
        if (tag.ends_with('/'))
            depth -= depth > 0 ? 1 : 0;
        text.remove_prefix(std::min(std::max<std::size_t>(tag.size(), 1), text.size()));
    }
}

}  // namespace zn
