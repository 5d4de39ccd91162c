// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCBinaryPropertyList.h"

#include <optional>
#include <vector>

namespace {

// Both limits are far above what settings need: settings have some hundred parts and nest three
// deep.
constexpr qsizetype mostParts = 100'000;
constexpr int deepest = 200;

// Returns the big-endian number of length bytes at position. Returns std::nullopt if the number
// reaches beyond the end or is too large for a position.
std::optional<qsizetype> numberAt(QByteArrayView bytes, qsizetype position, qsizetype length)
{
    if (position < 0 || length < 1 || position > bytes.size() - length)
        return std::nullopt;
    constexpr qsizetype largest = 0x7FFFFFFF;
    qsizetype number = 0;
    for (const char byte : bytes.sliced(position, length)) {
        number = number << 8 | static_cast<quint8>(byte);
        if (number > largest)
            return std::nullopt;
    }
    return number;
}

class BinaryList {
public:
    // Reads the trailer at the list's end.
    static std::optional<BinaryList> of(QByteArrayView bytes)
    {
        constexpr qsizetype trailerLength = 26; // the trailer follows six unused bytes
        const qsizetype trailer = bytes.size() - trailerLength;
        const auto offsetLength = numberAt(bytes, trailer, 1);
        const auto referenceLength = numberAt(bytes, trailer + 1, 1);
        const auto root = numberAt(bytes, trailer + 10, 8);
        const auto table = numberAt(bytes, trailer + 18, 8);
        if (!offsetLength || !referenceLength || !root || !table)
            return std::nullopt;
        return BinaryList {bytes, *offsetLength, *referenceLength, *root, *table};
    }

    qsizetype root() const { return _root; }

    // Returns the numbers of the parts that a part contains, repeated as often as they occur.
    // Returns std::nullopt if the part is damaged or contains more than room parts.
    std::optional<std::vector<qsizetype>> partsOf(qsizetype number, qsizetype room) const
    {
        auto position = numberAt(_bytes, _table + number * _offsetLength, _offsetLength);
        const auto marker = numberAt(_bytes, position.value_or(-1), 1);
        if (!marker)
            return std::nullopt;
        const qsizetype listsOfReferences = referenceLists(*marker >> 4);
        if (listsOfReferences == 0)
            return std::vector<qsizetype>();
        ++*position;
        auto count = std::optional(*marker & 0xF);
        if (count == 0xF)
            count = countAt(&*position);
        if (!count || *count > room)
            return std::nullopt;
        return referencesAt(*position, *count * listsOfReferences);
    }

private:
    BinaryList(QByteArrayView bytes, qsizetype offsetLength, qsizetype referenceLength,
        qsizetype root, qsizetype table)
        : _bytes(bytes)
        , _offsetLength(offsetLength)
        , _referenceLength(referenceLength)
        , _root(root)
        , _table(table)
    {
    }

    // Returns the number of reference lists: one for arrays and sets, two for dictionaries (keys
    // and values), and 0 for all other kinds.
    static qsizetype referenceLists(qsizetype kind)
    {
        constexpr qsizetype array = 0xA;
        constexpr qsizetype set = 0xC;
        constexpr qsizetype dictionary = 0xD;
        return kind == dictionary ? 2 : kind == array || kind == set ? 1 : 0;
    }

    // Reads a count that is stored as an integer at position, and moves position behind it.
    std::optional<qsizetype> countAt(qsizetype* position) const
    {
        const auto marker = numberAt(_bytes, *position, 1);
        if (!marker || *marker >> 4 != 1)
            return std::nullopt;
        const qsizetype length = qsizetype(1) << (*marker & 0xF);
        const auto count = numberAt(_bytes, *position + 1, length);
        *position += 1 + length;
        return count;
    }

    std::optional<std::vector<qsizetype>> referencesAt(qsizetype position, qsizetype count) const
    {
        std::vector<qsizetype> references;
        for (; count > 0; --count, position += _referenceLength) {
            const auto reference = numberAt(_bytes, position, _referenceLength);
            if (!reference)
                return std::nullopt;
            references.push_back(*reference);
        }
        return references;
    }

    QByteArrayView _bytes;
    qsizetype _offsetLength;
    qsizetype _referenceLength;
    qsizetype _root;
    qsizetype _table;
};

struct Part {
    qsizetype number;
    int depth;
};

} // namespace

bool unfoldsWithinBounds(QByteArrayView binaryList)
{
    const auto list = BinaryList::of(binaryList);
    if (!list)
        return false;
    qsizetype count = 1;
    std::vector<Part> open {{list->root(), 0}};
    while (!open.empty()) {
        const Part part = open.back();
        open.pop_back();
        const auto inner = list->partsOf(part.number, mostParts - count);
        if (!inner || part.depth == deepest)
            return false;
        count += qsizetype(inner->size());
        if (count > mostParts)
            return false;
        for (const qsizetype number : *inner)
            open.push_back({number, part.depth + 1});
    }
    return true;
}
