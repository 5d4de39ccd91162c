// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of the converter screen that differ between import and export. Each is given by its key
// in the strings table, which has the texts in every language of the program.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCConverterController.h"

#include <QKeySequence>

struct DBCConverterWindowTexts {
    struct Key {
        const char* name;
        QString text(const DBCMessageArguments& arguments = {}) const
        {
            return getLocalString(name, arguments);
        }
    };

    Key dataPathLabel;
    Key databasePathLabel;
    Key convertButton;
    QKeyCombination convertKey;
    Key label; // the operation's name
    Key progress; // %1: percentage
    Key finishedCount; // %L1: count
    DBCQuestionId quitQuestion;

    // Returns the texts of an import for every type except Export.
    static const DBCConverterWindowTexts& of(OperationType type);
};
