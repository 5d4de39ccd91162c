// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PdfBuilder.h"

#include "tests/support/JpegBuilder.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

namespace {

constexpr int FirstFreeNumber = 4;

QByteArray entry(const char* name, const QByteArray& value)
{
    return value.isEmpty() ? QByteArray() : QByteArray(name) + ' ' + value + '\n';
}

} // namespace

PdfPage PdfPage::ofImage(int image)
{
    PdfPage page;
    page.resources = "<< /XObject << /Im1 " + PdfBuilder::reference(image) + " >> >>";
    page.contents = "/Perceptual ri\nq\n252 0 0 144 0 0 cm\n/Im1 Do\nQ\n";
    return page;
}

PdfPage PdfPage::ofText(const QByteArray& text)
{
    PdfPage page;
    page.resources = "<< /Font << /F1 << /Type /Font /Subtype /Type1 /BaseFont /Helvetica >> >> >>";
    page.contents = "BT /F1 24 Tf 20 60 Td (" + text + ") Tj ET\n";
    return page;
}

QByteArray PdfBuilder::reference(int number)
{
    return QByteArray::number(number) + " 0 R";
}

QByteArray PdfBuilder::cardPdf(const QList<QByteArray>& jpegs)
{
    PdfBuilder pdf;
    for (const QByteArray& jpeg : jpegs)
        pdf.page(PdfPage::ofImage(pdf.jpegImage(jpeg)));
    return pdf.bytes();
}

QByteArray PdfBuilder::searchableCardPdf(const QByteArray& text)
{
    return PdfBuilder().page(PdfPage::ofText(text)).bytes();
}

QByteArray PdfBuilder::encrypted(const QByteArray& pdf, const QByteArray& userPassword)
{
    QPDF document;
    document.processMemoryFile("test", pdf.constData(), static_cast<size_t>(pdf.size()));
    QPDFWriter writer(document);
    writer.setR6EncryptionParameters(userPassword.constData(), "owner", true, false, false, false,
        false, false, qpdf_r3p_none, true);
    writer.setOutputMemory();
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()),
        static_cast<qsizetype>(buffer->getSize())};
}

PdfBuilder& PdfBuilder::creator(const QByteArray& text)
{
    _infoEntry = "/Creator (" + text + ')';
    return *this;
}

PdfBuilder& PdfBuilder::withoutCreator()
{
    _infoEntry = "/Producer (Trevant)";
    return *this;
}

PdfBuilder& PdfBuilder::withoutInfo()
{
    _hasInfo = false;
    return *this;
}

PdfBuilder& PdfBuilder::inheritedEntries(const QByteArray& entries)
{
    _inheritedEntries = entries;
    return *this;
}

int PdfBuilder::object(const QByteArray& body)
{
    const int number = nextNumber();
    _objects << body;
    return number;
}

int PdfBuilder::stream(const QByteArray& entries, const QByteArray& data)
{
    return object("<< " + entries + " /Length " + QByteArray::number(data.size()) + " >>\nstream\n"
        + data + "\nendstream");
}

int PdfBuilder::jpegImage(const QByteArray& jpeg, const std::optional<QByteArray>& entries)
{
    const JpegFacts facts = JpegFacts::of(jpeg).value_or(JpegFacts());
    const char* const space = facts.components == 1 ? "/DeviceGray"
        : facts.components == 4                     ? "/DeviceCMYK"
                                                    : "/DeviceRGB";
    return stream("/Type /XObject /Subtype /Image /BitsPerComponent 8 /ColorSpace "
            + QByteArray(space) + " /Width " + QByteArray::number(facts.width) + " /Height "
            + QByteArray::number(facts.height) + ' ' + entries.value_or("/Filter /DCTDecode"),
        jpeg);
}

int PdfBuilder::bitImage(int width, int height, const QByteArray& rows)
{
    return stream("/Type /XObject /Subtype /Image /BitsPerComponent 1 /ColorSpace /DeviceGray"
                  " /Filter /FlateDecode /Width "
            + QByteArray::number(width) + " /Height " + QByteArray::number(height),
        deflated(rows));
}

int PdfBuilder::form(const QByteArray& contents, const QByteArray& resources)
{
    return stream(
        "/Type /XObject /Subtype /Form /BBox [0 0 1000 1000]\n" + entry("/Resources", resources),
        contents);
}

int PdfBuilder::formsThatDouble(int times)
{
    int next = form("n\n", "<< >>");
    for (; times > 0; --times)
        next = form("/X1 Do /X1 Do\n", "<< /XObject << /X1 " + reference(next) + " >> >>");
    return next;
}

int PdfBuilder::nextNumber() const
{
    return FirstFreeNumber + static_cast<int>(_objects.size());
}

PdfBuilder& PdfBuilder::page(const PdfPage& page)
{
    const QByteArray contents
        = page.contents.isEmpty() ? QByteArray() : reference(stream({}, page.contents));
    return kid(object("<< /Type /Page /Parent " + reference(pagesNumber) + '\n'
        + entry("/MediaBox", page.mediaBox) + entry("/Resources", page.resources)
        + entry("/Contents", page.contentsEntry.isEmpty() ? contents : page.contentsEntry)
        + page.furtherEntries + ">>"));
}

PdfBuilder& PdfBuilder::kid(int number)
{
    _kids << number;
    return *this;
}

QByteArray PdfBuilder::bytes() const
{
    QByteArray kids;
    for (const int number : _kids)
        kids += reference(number) + ' ';
    QList<QByteArray> objects {
        "<< /Type /Catalog /Pages " + reference(pagesNumber) + " >>",
        "<< /Type /Pages /Count " + QByteArray::number(_kids.size()) + " /Kids [ " + kids + "]\n"
            + _inheritedEntries + ">>",
        "<< " + _infoEntry + " >>",
    };
    objects += _objects;

    QByteArray result = "%PDF-1.4\n";
    QByteArray table = "0000000000 65535 f \n";
    for (int i = 0; i < objects.size(); ++i) {
        table += QByteArray::number(result.size()).rightJustified(10, '0') + " 00000 n \n";
        result += QByteArray::number(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const QByteArray count = QByteArray::number(objects.size() + 1);
    const QByteArray tableAt = QByteArray::number(result.size());
    return result + "xref\n0 " + count + '\n' + table + "trailer\n<< /Size " + count
        + " /Root 1 0 R" + (_hasInfo ? " /Info 3 0 R" : "") + " >>\nstartxref\n" + tableAt
        + "\n%%EOF\n";
}

QByteArray PdfBuilder::deflated(const QByteArray& data)
{
    constexpr int lengthPrefix = 4;
    return qCompress(data).mid(lengthPrefix);
}
