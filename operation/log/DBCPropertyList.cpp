// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCPropertyList.h"

#include "operation/log/DBCBinaryPropertyList.h"

#include <QFile>
#include <QFileInfo>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <plist/plist.h>
#include <type_traits>

namespace {

struct NodeDeleter {
    void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Type> using Allocated = std::unique_ptr<Type, FreeDeleter>;

// The library parses numbers by the rules of the current locale, but property lists always use a
// decimal point. While an object of this class exists, this thread uses the "C" locale.
class NumbersWithPoints {
public:
    NumbersWithPoints()
        : _locale(newlocale(LC_NUMERIC_MASK, "C", duplocale(uselocale(nullptr))))
        , _before(uselocale(_locale.get()))
    {
    }
    ~NumbersWithPoints() { uselocale(_before); }
    NumbersWithPoints(const NumbersWithPoints&) = delete;
    NumbersWithPoints& operator=(const NumbersWithPoints&) = delete;

private:
    struct Deleter {
        void operator()(locale_t locale) const { freelocale(locale); }
    };
    std::unique_ptr<std::remove_pointer_t<locale_t>, Deleter> _locale;
    locale_t _before;
};

std::optional<QByteArray> readBounded(const QString& path)
{
    // Opening a pipe could block forever, because the call waits until somebody writes to the pipe.
    if (!QFileInfo(path).isFile())
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > DBCPropertyList::sizeLimit)
        return {};
    return file.read(DBCPropertyList::sizeLimit);
}

// The parameters of the library's function for both forms change from release to release. Therefore
// this uses the two functions for a single form, which do not change.
Node parse(const QByteArray& bytes)
{
    const auto length = static_cast<uint32_t>(bytes.size());
    plist_t node = nullptr;
    const bool isBinary = plist_is_binary(bytes.constData(), length) != 0;
    if (isBinary && !unfoldsWithinBounds(bytes))
        return {};
    const NumbersWithPoints numbers;
    if (isBinary)
        plist_from_bin(bytes.constData(), length, &node);
    else
        plist_from_xml(bytes.constData(), length, &node);
    return Node(node);
}

// Does not use the library's function that copies a text, because that function aborts the program
// when the text contains a zero byte.
QString textOf(plist_t node)
{
    uint64_t length = 0;
    const char* const text = plist_get_string_ptr(node, &length);
    return QString::fromUtf8(text, static_cast<qsizetype>(length));
}

QVariant valueOf(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_STRING:
        return textOf(node);
    case PLIST_UINT: {
        uint64_t number = 0;
        plist_get_uint_val(node, &number);
        return static_cast<qlonglong>(number);
    }
    case PLIST_REAL: {
        double number = 0;
        plist_get_real_val(node, &number);
        return number;
    }
    case PLIST_BOOLEAN: {
        uint8_t truth = 0;
        plist_get_bool_val(node, &truth);
        return truth != 0;
    }
    default:
        return {};
    }
}

QVariantMap entriesOf(plist_t dictionary)
{
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(dictionary, &position);
    const Allocated<void> owner(position);
    QVariantMap entries;
    for (;;) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(dictionary, position, &key, &value);
        const Allocated<char> keyOwner(key);
        if (!value)
            return entries;
        if (const QVariant entry = valueOf(value); entry.isValid())
            entries.insert(QString::fromUtf8(key), entry);
    }
}

} // namespace

std::optional<QVariantMap> DBCPropertyList::read(const QString& path)
{
    const auto bytes = readBounded(path);
    if (!bytes)
        return {};
    const Node root = parse(*bytes);
    if (!root || plist_get_node_type(root.get()) != PLIST_DICT)
        return {};
    return entriesOf(root.get());
}
