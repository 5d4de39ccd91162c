// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the cancel question, with which the driver asks the user to confirm a requested cancel:
// when the driver asks it, and what each answer does.
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_cancelQuestion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noCancelAskedMeansNoQuestion()
    {
        ScriptedConversion conversion(OperationType::Import);

        QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());

        QVERIFY(conversion.presenter.questions.isEmpty());
        QVERIFY(conversion.receiver.events.isEmpty());
    }

    void confirmedCancelStops_data()
    {
        QTest::addColumn<OperationType>("type");
        QTest::addColumn<QString>("key");
        QTest::newRow("import") << OperationType::Import
                                << DBCMessage::keyOf(DBCQuestionId::CancelImport);
        QTest::newRow("export") << OperationType::Export
                                << DBCMessage::keyOf(DBCQuestionId::CancelExport);
    }
    void confirmedCancelStops()
    {
        QFETCH(OperationType, type);
        QFETCH(QString, key);
        ScriptedConversion conversion(type);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.controller->setConfirmCancelOperation(true);

        QVERIFY(conversion.controller->checkIsNeedToConfirmCancelOperation());

        QVERIFY(conversion.controller->isStopRunning());
        QVERIFY(!conversion.controller->isConfirmCancelOperation());
        QCOMPARE(conversion.presenter.questions.size(), 1);
        const DBCQuestion question = conversion.presenter.questions.constFirst();
        QCOMPARE(question.key, key);
        QCOMPARE(question.defaultButton, getLocalString(u"IDS_BUTTON_MSG_YES"_s));
        QCOMPARE(question.alternateButton, getLocalString(u"IDS_BUTTON_MSG_NO"_s));
        QVERIFY(question.otherButton.isEmpty());
        QCOMPARE(conversion.log(), QStringList(u"[Info] cancelled"_s));
        QCOMPARE(conversion.receiver.events,
            QStringList(u"DBC_OperationDidCanceledNotification cancel=true"_s));
    }

    void declinedCancelGoesOn()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.presenter.answer = DBCAnswer::Alternate;
        conversion.controller->setConfirmCancelOperation(true);
        conversion.controller->setStopRunning(true);

        QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());

        QVERIFY(!conversion.controller->isStopRunning());
        QVERIFY(conversion.log().isEmpty());
        QCOMPARE(conversion.receiver.events,
            QStringList(u"DBC_OperationDidCanceledNotification cancel=false"_s));
        QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());
        QCOMPARE(conversion.presenter.questions.size(), 1);
    }

    void cancelWithoutOperationCannotBeAsked()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.controller->setOperationType(OperationType::None);
        conversion.controller->setConfirmCancelOperation(true);

        QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());

        QVERIFY(conversion.presenter.questions.isEmpty());
        QCOMPARE(conversion.presenter.numbers, QList<quint32> {102});
    }

    void copyGoesOnUntilACancelIsConfirmed()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.presenter.answers = {DBCAnswer::Alternate, DBCAnswer::Default};
        const auto mayCopy
            = [&] { return conversion.controller->fileManager(nullptr, u"/a"_s, u"/b"_s); };

        QVERIFY(mayCopy());
        conversion.controller->setConfirmCancelOperation(true);
        QVERIFY(mayCopy());
        conversion.controller->setConfirmCancelOperation(true);
        QVERIFY(!mayCopy());
        QVERIFY(!mayCopy());
    }
};

QTEST_GUILESS_MAIN(tst_cancelQuestion)
#include "tst_cancelQuestion.moc"
