// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdfDocument.h"

#include "cardimage/jpeg/DBCJpegProperties.h"

#include <memory>
#include <stdexcept>
#include <string>

#include <qpdf/QPDFWriter.hh>

namespace {

using Object = QPDFObjectHandle;

const char* colorSpaceOf(int components)
{
    switch (components) {
    case 1:
        return "/DeviceGray";
    case 4:
        return "/DeviceCMYK";
    default:
        return "/DeviceRGB";
    }
}

// Allows the library to read the bytes without a copy, and keeps the bytes alive as long as the
// library uses them.
struct HeldBytes {
    explicit HeldBytes(const QByteArray& held)
        : bytes(held)
        // The library requires writable bytes but does not write to them.
        , buffer(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.constData())),
              static_cast<size_t>(bytes.size()))
    {
    }

    const QByteArray bytes;
    Buffer buffer;
};

std::shared_ptr<Buffer> bufferOver(const QByteArray& bytes)
{
    const auto held = std::make_shared<HeldBytes>(bytes);
    return {held, &held->buffer};
}

Object imageDictionary(const DBCJpegProperties& properties)
{
    constexpr int bitsPerComponent = 8;
    Object dictionary = Object::newDictionary();
    dictionary.replaceKey("/Type", Object::newName("/XObject"));
    dictionary.replaceKey("/Subtype", Object::newName("/Image"));
    dictionary.replaceKey("/Width", Object::newInteger(properties.pixelWidth));
    dictionary.replaceKey("/Height", Object::newInteger(properties.pixelHeight));
    dictionary.replaceKey("/BitsPerComponent", Object::newInteger(bitsPerComponent));
    dictionary.replaceKey("/ColorSpace", Object::newName(colorSpaceOf(properties.components)));
    // PDF readers take the stored values for amounts of ink, unless /Decode (ISO 32000, 8.9.5.2)
    // says that the values are inverted.
    if (properties.isInvertedCmyk)
        dictionary.replaceKey("/Decode", Object::parse("[1 0 1 0 1 0 1 0]"));
    return dictionary;
}

Object boxOf(QSize pointSize)
{
    const Object origin = Object::newInteger(0);
    return Object::newArray({origin, origin, Object::newInteger(pointSize.width()),
        Object::newInteger(pointSize.height())});
}

// Readers of card PDFs derive a card's rotation from the first matrix after "/Perceptual"; the
// matrix written here means upright.
std::string contentsFor(QSize pointSize)
{
    return "/Perceptual ri\nq\n" + std::to_string(pointSize.width()) + " 0 0 "
        + std::to_string(pointSize.height()) + " 0 0 cm\n/Im1 Do\nQ\n";
}

} // namespace

DBCCardPdfDocument::DBCCardPdfDocument()
{
    _document.setSuppressWarnings(true);
    _document.emptyPDF();
    Object info = Object::newDictionary();
    info.replaceKey("/Creator", Object::newString(creator));
    _document.getTrailer().replaceKey("/Info", _document.makeIndirectObject(info));
}

DBCCardPdfDocument::Page DBCCardPdfDocument::newPage()
{
    Page page {Object::newDictionary(), _document.newStream(), _document.newStream()};
    Object images = Object::newDictionary();
    images.replaceKey("/Im1", page.image);
    Object resources = Object::newDictionary();
    resources.replaceKey("/XObject", images);
    page.object.replaceKey("/Type", Object::newName("/Page"));
    page.object.replaceKey("/Resources", resources);
    page.object.replaceKey("/Contents", page.contents);
    page.object = _document.makeIndirectObject(page.object);
    return page;
}

void DBCCardPdfDocument::addPage(
    const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize)
{
    if (_pageCount == _pages.size())
        _pages.push_back(newPage());
    Page& page = _pages[_pageCount];
    page.object.replaceKey("/MediaBox", boxOf(pointSize));
    page.image.replaceDict(imageDictionary(properties));
    page.image.replaceStreamData(
        bufferOver(jpeg), Object::newName("/DCTDecode"), Object::newNull());
    page.contents.replaceStreamData(contentsFor(pointSize), Object::newNull(), Object::newNull());
    _document.addPage(page.object, false);
    ++_pageCount;
}

void DBCCardPdfDocument::write(std::FILE* file)
{
    QPDFWriter writer(_document);
    writer.setOutputFile("card PDF", file, false);
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setObjectStreamMode(qpdf_o_disable);
    writer.write();
    expectNoLoss();
}

void DBCCardPdfDocument::expectNoLoss()
{
    if (_document.anyWarnings())
        throw std::runtime_error("a part of the document is lost");
}

void DBCCardPdfDocument::clear()
{
    for (; _pageCount > 0; --_pageCount) {
        Page& page = _pages[_pageCount - 1];
        page.image.replaceStreamData(std::string(), Object::newNull(), Object::newNull());
        _document.removePage(page.object);
    }
}
