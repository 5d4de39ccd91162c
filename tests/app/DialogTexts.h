// SPDX-License-Identifier: GPL-3.0-or-later
// Checks the rules that hold for every dialog: it shows texts and not their keys, each control that
// the keyboard reaches has a name for a screen reader, and each button has a mnemonic of its own.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDialog>
#include <QSet>

using namespace Qt::StringLiterals;

// Returns the faults in the dialog's texts. The list is empty if there are no faults.
inline QStringList faultsOfTexts(const QDialog& dialog)
{
    QStringList faults;
    QSet<QChar> mnemonics;
    for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
        for (const char* const name : {"text", "toolTip", "accessibleName"}) {
            if (widget->property(name).toString().contains(u"IDS_"_s))
                faults << widget->objectName() + u" has a key for a text"_s;
        }
    }
    for (const QAbstractButton* const button : dialog.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || !button->objectName().endsWith(u"Btn"_s))
            continue;
        const qsizetype sign = button->text().indexOf(u'&');
        const QChar letter = sign < 0 ? QChar() : button->text()[sign + 1].toUpper();
        if (letter.isNull() || mnemonics.contains(letter))
            faults << button->text() + u" has no mnemonic of its own"_s;
        mnemonics << letter;
    }
    for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus
            || widget->objectName().startsWith(u"qt_"_s))
            continue;
        const QAccessibleInterface* const accessible
            = QAccessible::queryAccessibleInterface(widget);
        if (!accessible || accessible->text(QAccessible::Name).isEmpty())
            faults << widget->objectName() + u" has no name"_s;
    }
    return faults;
}
