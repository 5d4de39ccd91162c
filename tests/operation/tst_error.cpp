// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/base/DBCError.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Code = DBCResultCode;

class tst_error : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void emptyErrorIsNone()
    {
        const DBCError error;
        QVERIFY(!error);
        QCOMPARE(error.code(), Code::Success);
    }

    void cancelledIsAnErrorAlthoughItsCodeIsPositive()
    {
        const DBCError error(Code::CancelledByUser);
        QVERIFY(error);
        QCOMPARE(toNumber(error.code()), 2);
    }

    void zeroGivenAsACodeIsStillAnError() { QVERIFY(DBCError(Code::Success)); }

    void onlyNegativeCodesAreFailures_data()
    {
        QTest::addColumn<Code>("code");
        QTest::addColumn<bool>("expected");
        QTest::newRow("success") << Code::Success << false;
        QTest::newRow("cancelled") << Code::CancelledByUser << false;
        QTest::newRow("a card PDF") << Code::PdfCardImageOnly << false;
        QTest::newRow("a usable package") << Code::PackageUsable << false;
        QTest::newRow("general failure") << Code::GeneralFailure << true;
        QTest::newRow("no space") << Code::NoSpace << true;
    }
    void onlyNegativeCodesAreFailures()
    {
        QFETCH(Code, code);
        QFETCH(bool, expected);
        QCOMPARE(isFailure(code), expected);
        const DBCError error = DBCError::ifFailure(code);
        QCOMPARE(static_cast<bool>(error), expected);
        QCOMPARE(error.code(), expected ? code : Code::Success);
    }

    void detailsAreNoneUntilSet()
    {
        const DBCError bare(Code::NoSpace);
        QVERIFY(!bare.pathName());
        QVERIFY(!bare.lineNo());
        QVERIFY(bare.localizedDescription().isEmpty());

        const DBCError detailed = DBCError(Code::NoSpace)
                                      .withPathName(u"/a"_s)
                                      .withLineNo(qint64 {1} << 40)
                                      .withDescription(u"full"_s);
        QCOMPARE(*detailed.pathName(), u"/a"_s);
        QCOMPARE(*detailed.lineNo(), qint64 {1} << 40);
        QCOMPARE(detailed.localizedDescription(), u"full"_s);
    }

    void emptyPathIsAPath() { QVERIFY(DBCError(Code::NoSpace).withPathName(QString()).pathName()); }

    void textNamesDomainCodeAndDetails()
    {
        const DBCError error = DBCError(Code::DataLineFormatError)
                                   .withPathName(u"/a b"_s)
                                   .withLineNo(7)
                                   .withDescription(u"20 items"_s);
        QCOMPARE(error.toString(),
            u"com.velmora.VelmoraConverter.ErrorDomain -104 "
            "DBC_USERINFO_KEY_PATH_NAME=/a b DBC_USERINFO_KEY_LINE_NO=7 20 items"_s);
    }

    void textOfABareError()
    {
        QCOMPARE(DBCError(Code::FetchFailure).toString(),
            u"com.velmora.VelmoraConverter.ErrorDomain -208"_s);
    }

    void codesKeepTheirNumbers_data()
    {
        QTest::addColumn<Code>("code");
        QTest::addColumn<int>("number");
        const auto row
            = [](Code code, int number) { QTest::addRow("%d", number) << code << number; };
        row(Code::Success, 0);
        row(Code::GeneralFailure, -1);
        row(Code::CancelledByUser, 2);
        row(Code::ParameterError, -50);
        row(Code::DataFileOpenFailure, -101);
        row(Code::TitleLineFormatError, -103);
        row(Code::DataLineFormatError, -104);
        row(Code::DataFileDecodeFailure, -105);
        row(Code::DataFileEmpty, -106);
        row(Code::InternalException, -107);
        row(Code::FolderNotExist, -108);
        row(Code::PdfCreateFailure, -109);
        row(Code::DataFileWriteFailure, -111);
        row(Code::FileSaveFailure, -112);
        row(Code::SizeMeasureFailure, -113);
        row(Code::VersionFileWriteFailure, -114);
        row(Code::VersionFileRefusedProduct, -115);
        row(Code::VersionFileMismatch, -116);
        row(Code::DatabaseOpenFailure, -201);
        row(Code::DatabaseLockFailure, -202);
        row(Code::DatabaseUnlockFailure, -203);
        row(Code::BackupFailure, -204);
        row(Code::RestoreFailure, -205);
        row(Code::DatabaseSaveFailure, -206);
        row(Code::FetchFailure, -208);
        row(Code::NoCards, -209);
        row(Code::FolderCreateFailure, -210);
        row(Code::AttachmentExportFailure, -211);
        row(Code::AttachmentImportFailure, -212);
        row(Code::NoImageInPdf, -301);
        row(Code::PdfToJpegFailure, -303);
        row(Code::NoSpaceForImport, -401);
        row(Code::NoSpaceForExport, -402);
        row(Code::NoSpaceForBackup, -403);
        row(Code::NoSpace, -404);
        row(Code::PdfNotExist, 0x30002);
        row(Code::PdfNotCard, 0x30003);
        row(Code::PdfCardWithText, 0x30004);
        row(Code::PdfCardImageOnly, 0x30005);
        row(Code::PackageNotExist, 0x40001);
        row(Code::PackageInvalid, 0x40002);
        row(Code::PackageLocked, 0x40003);
        row(Code::PackageReadOnly, 0x40004);
        row(Code::PackageUsable, 0x40005);
        row(Code::PackageOtherRights, 0x40006);
    }
    void codesKeepTheirNumbers()
    {
        QFETCH(Code, code);
        QFETCH(int, number);
        QCOMPARE(toNumber(code), number);
    }
};

QTEST_APPLESS_MAIN(tst_error)
#include "tst_error.moc"
