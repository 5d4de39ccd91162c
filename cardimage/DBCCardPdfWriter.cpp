// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCCardPdfWriter.h"

#include "cardimage/DBCJpegProperties.h"

#include <QFile>

#include <qpdf/QPDFObjectHandle.hh>
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

// A view: the bytes must outlive the buffer, which the library only reads.
std::shared_ptr<Buffer> bufferOf(QByteArray& bytes)
{
    return std::make_shared<Buffer>(
        reinterpret_cast<unsigned char*>(bytes.data()), static_cast<size_t>(bytes.size()));
}

Object newImage(QPDF* document, QByteArray& jpeg, const DBCJpegProperties& properties)
{
    constexpr int bitsPerComponent = 8;
    Object image = document->newStream();
    Object dictionary = image.getDict();
    dictionary.replaceKey("/Type", Object::newName("/XObject"));
    dictionary.replaceKey("/Subtype", Object::newName("/Image"));
    dictionary.replaceKey("/Width", Object::newInteger(properties.pixelWidth));
    dictionary.replaceKey("/Height", Object::newInteger(properties.pixelHeight));
    dictionary.replaceKey("/BitsPerComponent", Object::newInteger(bitsPerComponent));
    dictionary.replaceKey("/ColorSpace", Object::newName(colorSpaceOf(properties.components)));
    // Readers take the four inks as they stand in the file, and these stand for their opposites.
    if (properties.isInvertedCmyk)
        dictionary.replaceKey("/Decode", Object::parse("[1 0 1 0 1 0 1 0]"));
    image.replaceStreamData(bufferOf(jpeg), Object::newName("/DCTDecode"), Object::newNull());
    return image;
}

// The matrix behind the rendering intent is where a card's rotation is looked for; this one says
// upright.
std::string contentsFor(QSize pointSize)
{
    return "/Perceptual ri\nq\n" + std::to_string(pointSize.width()) + " 0 0 "
        + std::to_string(pointSize.height()) + " 0 0 cm\n/Im1 Do\nQ\n";
}

} // namespace

DBCCardPdfWriter::DBCCardPdfWriter(const QString& path)
    : _file(std::fopen(QFile::encodeName(path).constData(), "wbe"))
{
    _document.emptyPDF();
    Object info = Object::newDictionary();
    info.replaceKey("/Creator", Object::newString(creator));
    _document.getTrailer().replaceKey("/Info", _document.makeIndirectObject(info));
}

void DBCCardPdfWriter::addPage(
    QByteArray jpeg, const DBCJpegProperties& properties, QSize pointSize)
{
    _jpegs.push_back(std::move(jpeg));
    Object images = Object::newDictionary();
    images.replaceKey("/Im1", newImage(&_document, _jpegs.back(), properties));
    Object resources = Object::newDictionary();
    resources.replaceKey("/XObject", images);
    const Object box = Object::parse("[0 0 " + std::to_string(pointSize.width()) + ' '
        + std::to_string(pointSize.height()) + ']');

    Object page = Object::newDictionary();
    page.replaceKey("/Type", Object::newName("/Page"));
    page.replaceKey("/MediaBox", box);
    page.replaceKey("/Resources", resources);
    page.replaceKey("/Contents", _document.newStream(contentsFor(pointSize)));
    _document.addPage(_document.makeIndirectObject(page), false);
}

bool DBCCardPdfWriter::close()
{
    try {
        QPDFWriter writer(_document);
        writer.setOutputFile("card PDF", _file.get(), false);
        writer.setStreamDataMode(qpdf_s_preserve);
        writer.setObjectStreamMode(qpdf_o_disable);
        writer.write();
    } catch (const std::exception&) {
        return false;
    }
    // The library does not ask whether its last bytes reached the disk.
    const bool isWritten = std::fflush(_file.get()) == 0 && std::ferror(_file.get()) == 0;
    return std::fclose(_file.release()) == 0 && isWritten;
}
