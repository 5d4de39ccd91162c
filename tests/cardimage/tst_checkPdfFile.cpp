// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdf.h"

#include "tests/support/JpegBuilder.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray jpeg()
{
    return JpegBuilder(40, 20).bytes();
}

DBCResultCode check(const QByteArray& bytes, qint32* pageCount = nullptr)
{
    const TestHome home;
    return CheckPdfFile(home.writeFile(u"card.pdf"_s, bytes), pageCount);
}

} // namespace

class tst_checkPdfFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void emptyPathIsAParameterError()
    {
        QCOMPARE(CheckPdfFile({}, nullptr), DBCResultCode::ParameterError);
    }

    void missingFileDoesNotExist()
    {
        const TestHome home;
        QCOMPARE(CheckPdfFile(home.path(u"none.pdf"_s), nullptr), DBCResultCode::PdfNotExist);
    }

    void pathOfAFolderIsNoCard()
    {
        const TestHome home;
        QCOMPARE(CheckPdfFile(home.path(), nullptr), DBCResultCode::PdfNotCard);
    }

    void pipeIsNoCardAndIsNotWaitedFor()
    {
        const TestHome home;
        const QString path = home.path(u"pipe.pdf"_s);
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        QCOMPARE(CheckPdfFile(path, nullptr), DBCResultCode::PdfNotCard);
    }

    void fileIsNoCard_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray card = PdfBuilder::cardPdf({jpeg()});
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("just a text that mentions Trevant\n");
        QTest::newRow("JPEG") << jpeg();
        QTest::newRow("header only") << card.left(20);
        QTest::newRow("cut off in the first object") << card.left(60);
        QTest::newRow("without information") << PdfBuilder().withoutInfo().bytes();
        QTest::newRow("without Creator") << PdfBuilder().withoutCreator().bytes();
        QTest::newRow("page tree that leads back to itself")
            << PdfBuilder().kid(PdfBuilder::pagesNumber).bytes();
    }
    void fileIsNoCard()
    {
        QFETCH(QByteArray, bytes);
        qint32 pageCount = -7;
        QCOMPARE(check(bytes, &pageCount), DBCResultCode::PdfNotCard);
        QCOMPARE(pageCount, -7);
    }

    void creatorDecides_data()
    {
        QTest::addColumn<QByteArray>("creator");
        QTest::addColumn<DBCResultCode>("result");
        const auto accepted = DBCResultCode::PdfCardImageOnly;
        const auto refused = DBCResultCode::PdfNotCard;
        QTest::newRow("this program")
            << QByteArray("Trevant Manager #VelmoraConverter") << accepted;
        QTest::newRow("scanner software") << QByteArray("Trevant Manager 3.1") << accepted;
        QTest::newRow("main application") << QByteArray("My Velmora 2") << accepted;
        QTest::newRow("other producer") << QByteArray("Office Writer") << refused;
        QTest::newRow("other letter case") << QByteArray("TREVANT velmora") << refused;
        QTest::newRow("empty") << QByteArray() << refused;
    }
    void creatorDecides()
    {
        QFETCH(QByteArray, creator);
        QFETCH(DBCResultCode, result);
        PdfBuilder pdf;
        pdf.creator(creator).page(PdfPage::ofImage(pdf.jpegImage(jpeg())));
        QCOMPARE(check(pdf.bytes()), result);
    }

    void creatorInUtf16IsUnderstood()
    {
        PdfBuilder pdf;
        QByteArray creator = "\\376\\377";
        for (const char letter : QByteArrayView("Velmora"))
            creator += QByteArray("\\000") + letter;
        pdf.creator(creator).page(PdfPage::ofImage(pdf.jpegImage(jpeg())));
        QCOMPARE(check(pdf.bytes()), DBCResultCode::PdfCardImageOnly);
    }

    void creatorAsAnObjectOfItsOwnIsFound()
    {
        PdfBuilder pdf;
        const QByteArray reference = "/Creator " + PdfBuilder::reference(pdf.object("(Velmora)"));
        // The replacement has the same length, so that the offsets in the file stay correct.
        const QByteArray placeholder(reference.size() - QByteArrayView("/Creator ()").size(), 'X');
        QByteArray bytes = pdf.creator(placeholder).bytes();
        QCOMPARE(check(bytes), DBCResultCode::PdfNotCard);
        bytes.replace("/Creator (" + placeholder + ')', reference);
        QCOMPARE(check(bytes), DBCResultCode::PdfCardImageOnly);
    }

    void pagesAreCounted()
    {
        qint32 pageCount = 0;
        QCOMPARE(check(PdfBuilder::cardPdf({jpeg()}), &pageCount), DBCResultCode::PdfCardImageOnly);
        QCOMPARE(pageCount, 1);
        QCOMPARE(check(PdfBuilder::cardPdf({jpeg(), jpeg(), jpeg()}), &pageCount),
            DBCResultCode::PdfCardImageOnly);
        QCOMPARE(pageCount, 3);
        QCOMPARE(check(PdfBuilder::cardPdf({}), &pageCount), DBCResultCode::PdfCardImageOnly);
        QCOMPARE(pageCount, 0);
    }

    void pageCountIsLeftAloneForOtherClasses()
    {
        qint32 pageCount = -7;
        QCOMPARE(check(PdfBuilder::searchableCardPdf("Sato"), &pageCount),
            DBCResultCode::PdfCardWithText);
        QCOMPARE(pageCount, -7);
    }

    void textDecides_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<DBCResultCode>("result");
        QTest::newRow("words") << QByteArray("Sato Taro") << DBCResultCode::PdfCardWithText;
        QTest::newRow("two characters") << QByteArray("AB") << DBCResultCode::PdfCardWithText;
        QTest::newRow("one character") << QByteArray("A") << DBCResultCode::PdfCardImageOnly;
        QTest::newRow("one space") << QByteArray(" ") << DBCResultCode::PdfCardImageOnly;
        QTest::newRow("nothing") << QByteArray() << DBCResultCode::PdfCardImageOnly;
    }
    void textDecides()
    {
        QFETCH(QByteArray, text);
        QFETCH(DBCResultCode, result);
        QCOMPARE(check(PdfBuilder::searchableCardPdf(text)), result);
    }

    void textOnTheSecondPageCounts()
    {
        PdfBuilder pdf;
        pdf.page(PdfPage::ofImage(pdf.jpegImage(jpeg()))).page(PdfPage::ofText("Sato"));
        QCOMPARE(check(pdf.bytes()), DBCResultCode::PdfCardWithText);
    }

    void textInAFormCounts()
    {
        PdfBuilder pdf;
        const PdfPage text = PdfPage::ofText("Sato Taro");
        const int form = pdf.form(text.contents, text.resources);
        PdfPage page = PdfPage::ofImage(form);
        page.resources.replace("Im1", "Fm1");
        page.contents = "/Fm1 Do\n";
        QCOMPARE(check(pdf.page(page).bytes()), DBCResultCode::PdfCardWithText);
    }

    void textWithFontsInheritedFromTheTreeCounts()
    {
        PdfPage page = PdfPage::ofText("Sato Taro");
        PdfBuilder pdf;
        pdf.inheritedEntries("/Resources " + page.resources);
        page.resources.clear();
        QCOMPARE(check(pdf.page(page).bytes()), DBCResultCode::PdfCardWithText);
    }

    void fontWithoutTextIsImageOnly()
    {
        PdfPage page = PdfPage::ofText({});
        page.contents = "0 0 100 100 re f\n";
        QCOMPARE(check(PdfBuilder().page(page).bytes()), DBCResultCode::PdfCardImageOnly);
    }

    void formThatNamesItselfIsFollowedOnce()
    {
        PdfBuilder pdf;
        const QByteArray self = PdfBuilder::reference(pdf.nextNumber());
        const int form = pdf.form("/Fm1 Do\n", "<< /XObject << /Fm1 " + self + " >> >>");
        PdfPage page = PdfPage::ofImage(form);
        page.resources.replace("Im1", "Fm1");
        page.contents = "/Fm1 Do\n";
        QCOMPARE(check(pdf.page(page).bytes()), DBCResultCode::PdfCardImageOnly);
    }

    void formsWithoutEndAreNotFollowedToIt()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofText({});
        page.resources.chop(2);
        page.resources
            += "/XObject << /X1 " + PdfBuilder::reference(pdf.formsThatDouble(40)) + " >> >>";
        page.contents = "/X1 Do\n";
        QCOMPARE(check(pdf.page(page).bytes()), DBCResultCode::PdfCardImageOnly);
    }

    void documentThatSpeaksOfMemoryIsNoWantOfIt()
    {
        // The library's warning of a duplicate key quotes the key, and the key in this document is
        // the text of an exception.
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(jpeg()));
        page.furtherEntries = "/std::bad_alloc 1 /std::bad_alloc 2";
        QCOMPARE(check(pdf.page(page).bytes()), DBCResultCode::PdfCardImageOnly);
    }

    void passwordToOpenIsNoCard()
    {
        const QByteArray card = PdfBuilder::cardPdf({jpeg()});
        QCOMPARE(check(card), DBCResultCode::PdfCardImageOnly);
        QCOMPARE(check(PdfBuilder::encrypted(card, "secret")), DBCResultCode::PdfNotCard);
    }

    void restrictionsWithoutAPasswordAreNoObstacle()
    {
        QCOMPARE(check(PdfBuilder::encrypted(PdfBuilder::cardPdf({jpeg()}), {})),
            DBCResultCode::PdfCardImageOnly);
    }

    void damagedCrossReferencesAreNoObstacle()
    {
        QByteArray card = PdfBuilder::cardPdf({jpeg()});
        card.replace("xref\n", "xxxx\n");
        QCOMPARE(check(card), DBCResultCode::PdfCardImageOnly);
    }
};

QTEST_GUILESS_MAIN(tst_checkPdfFile)
#include "tst_checkPdfFile.moc"
