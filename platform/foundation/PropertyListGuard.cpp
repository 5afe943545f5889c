#include "platform/foundation/PropertyListGuard.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace zn {
namespace {

constexpr std::size_t maximumDepth = 512;
constexpr std::uint64_t maximumNodes = 4'000'000;
/// Long texts count as so many nodes more.
constexpr std::uint64_t bytesPerNode = 64;
constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

std::optional<std::uint64_t> bigEndian(std::string_view bytes, std::uint64_t offset,
                                       std::size_t size) {
    if (size == 0 || size > 8 || offset > bytes.size() || size > bytes.size() - offset)
        return std::nullopt;
    std::uint64_t number = 0;
    for (const char byte : bytes.substr(offset, size))
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// Walks the objects of a binary list from its root, each once, without recursion.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes) : bytes_(bytes) {}

    bool isBounded() {
        if (bytes_.size() < headerSize + trailerSize)
            return false;
        const std::size_t trailer = bytes_.size() - trailerSize;
        offsetSize_ = static_cast<unsigned char>(bytes_[trailer + 6]);
        referenceSize_ = static_cast<unsigned char>(bytes_[trailer + 7]);
        const auto objects = *bigEndian(bytes_, trailer + 8, 8);
        const auto root = *bigEndian(bytes_, trailer + 16, 8);
        table_ = *bigEndian(bytes_, trailer + 24, 8);
        if (objects > bytes_.size() || table_ > bytes_.size())
            return false;
        nodes_.resize(objects);
        return enter(root) && walk();
    }

private:
    struct Node {
        enum class State : std::uint8_t { New, Open, Done };
        State state = State::New;
        bool fitsAsKey = false;
        std::uint64_t unfolded = 0;  ///< Cost of this and what is below, copies counted.
        std::size_t height = 0;      ///< Containers below this one.
    };
    struct Level {
        std::uint64_t object;
        std::uint64_t references;  ///< Offset of the first reference.
        std::uint64_t count;
        std::uint64_t keys = 0;  ///< How many of the references, the first ones, are keys.
        std::uint64_t size = 0;  ///< Of a text or data.
        std::uint64_t next = 0;
    };
    /// The count in a marker, or in the integer after it, and where the content begins.
    struct Extent {
        std::uint64_t count;
        std::uint64_t content;
    };

    bool walk() {
        while (!open_.empty()) {
            auto& level = open_.back();
            if (level.next == level.count) {
                nodes_[level.object].state = Node::State::Done;
                const auto finished = level.object;
                open_.pop_back();
                if (!open_.empty() && !account(finished))
                    return false;
                continue;
            }
            const auto offset = level.references + level.next * referenceSize_;
            const auto child = bigEndian(bytes_, offset, referenceSize_);
            if (!child || *child >= nodes_.size() ||
                (level.next < level.keys && !fitsAsKey(*child)))
                return false;
            ++level.next;
            if (!(nodes_[*child].state == Node::State::Done ? account(*child) : enter(*child)))
                return false;
        }
        return true;
    }

    /// Adds a finished child to the container that is open.
    bool account(std::uint64_t child) {
        auto& parent = nodes_[open_.back().object];
        parent.unfolded += nodes_[child].unfolded;
        parent.height = std::max(parent.height, nodes_[child].height + 1);
        return parent.unfolded <= maximumNodes && parent.height < maximumDepth;
    }

    bool enter(std::uint64_t object) {
        if (object >= nodes_.size() || nodes_[object].state != Node::State::New ||
            open_.size() == maximumDepth)
            return false;
        const auto offset = bigEndian(bytes_, table_ + object * offsetSize_, offsetSize_);
        if (!offset)
            return false;
        const auto level = levelAt(object, *offset);
        if (!level)
            return false;
        nodes_[object].state = Node::State::Open;
        nodes_[object].unfolded = 1 + level->size / bytesPerNode;
        open_.push_back(*level);
        return true;
    }

    /// Anything but a container is a level without references.
    std::optional<Level> levelAt(std::uint64_t object, std::uint64_t offset) const {
        const auto marker = bigEndian(bytes_, offset, 1);
        if (!marker)
            return std::nullopt;
        const auto kind = *marker >> 4;
        if (kind < dataKind || kind == referenceKind)
            return Level{object, offset, 0};
        const auto extent = extentAt(offset);
        if (!extent)
            return std::nullopt;
        if (kind < arrayKind)
            return Level{object, offset, 0, 0, extent->count};
        const auto keys = kind == dictionaryKind ? extent->count : 0;
        return Level{object, extent->content, extent->count + keys, keys};
    }

    std::optional<Extent> extentAt(std::uint64_t offset) const {
        const auto marker = bigEndian(bytes_, offset, 1);
        if (!marker)
            return std::nullopt;
        const std::uint64_t count = *marker & 0xF;
        if (count != 0xF)
            return Extent{count, offset + 1};
        const auto sizeMarker = bigEndian(bytes_, offset + 1, 1);
        const std::size_t size = sizeMarker ? std::size_t{1} << (*sizeMarker & 0xF) : 0;
        const auto longCount = bigEndian(bytes_, offset + 2, size);
        if (!longCount || *longCount > bytes_.size())
            return std::nullopt;
        return Extent{*longCount, offset + 2 + size};
    }

    bool fitsAsKey(std::uint64_t object) {
        auto& node = nodes_[object];
        node.fitsAsKey = node.fitsAsKey || isKeyWithoutZero(object);
        return node.fitsAsKey;
    }

    bool isKeyWithoutZero(std::uint64_t object) const {
        const auto offset = bigEndian(bytes_, table_ + object * offsetSize_, offsetSize_);
        const auto marker = offset ? bigEndian(bytes_, *offset, 1) : std::nullopt;
        const auto extent = marker ? extentAt(*offset) : std::nullopt;
        const std::size_t unit = marker && *marker >> 4 == wideTextKind ? 2 : 1;
        if (!extent || (unit == 1 && *marker >> 4 != textKind))
            return false;
        for (std::uint64_t i = 0; i < extent->count; ++i) {
            if (bigEndian(bytes_, extent->content + i * unit, unit).value_or(0) == 0)
                return false;
        }
        return true;
    }

    static constexpr unsigned dataKind = 0x4;
    static constexpr unsigned textKind = 0x5;
    static constexpr unsigned wideTextKind = 0x6;
    static constexpr unsigned referenceKind = 0x8;
    static constexpr unsigned arrayKind = 0xA;
    static constexpr unsigned dictionaryKind = 0xD;

    std::string_view bytes_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t table_ = 0;
    std::vector<Node> nodes_;
    std::vector<Level> open_;
};

/// What may hold tags that are none.
struct Opaque {
    std::string_view begin;
    std::string_view end;
};
constexpr std::array opaques = {Opaque{"<!--", "-->"}, Opaque{"<![CDATA[", "]]>"},
                                Opaque{"<?", "?>"}};

}  // namespace

bool binaryPropertyListIsBounded(std::string_view bytes) {
    return BinaryWalk(bytes).isBounded();
}

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
