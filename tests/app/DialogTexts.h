// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for every dialog of the window: its texts are in the language, each control that the
// keyboard reaches has a name for a screen reader, and no two have the same mnemonic.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDialog>
#include <QSet>

// What is wrong with the dialog's texts; empty: nothing.
inline QStringList faultsOfTexts(const QDialog& dialog)
{
    QStringList faults;
    QSet<QChar> mnemonics;
    for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
        for (const char* const name : {"text", "toolTip", "accessibleName"}) {
            if (widget->property(name).toString().contains(QStringLiteral("IDS_")))
                faults << widget->objectName() + QStringLiteral(" has a key for a text");
        }
    }
    for (const QAbstractButton* const button : dialog.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || !button->objectName().endsWith(QStringLiteral("Btn")))
            continue;
        const qsizetype sign = button->text().indexOf(u'&');
        const QChar letter = sign < 0 ? QChar() : button->text()[sign + 1].toUpper();
        if (letter.isNull() || mnemonics.contains(letter))
            faults << button->text() + QStringLiteral(" has no mnemonic of its own");
        mnemonics << letter;
    }
    for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus
            || widget->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        const QAccessibleInterface* const accessible
            = QAccessible::queryAccessibleInterface(widget);
        if (!accessible || accessible->text(QAccessible::Name).isEmpty())
            faults << widget->objectName() + QStringLiteral(" has no name");
    }
    return faults;
}
