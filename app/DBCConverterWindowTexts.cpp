// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCConverterWindowTexts.h"

namespace {

constexpr DBCConverterWindowTexts importTexts {
    .dataPathLabel = {"IDS_LABEL_IMPORT_DATA_PATH"},
    .databasePathLabel = {"IDS_LABEL_IMPORT_VMDB_PATH"},
    .convertButton = {"IDS_BUTTON_IMPORT"},
    .convertKey = Qt::CTRL | Qt::Key_I,
    .label = {"IDS_LBL_IMPORT"},
    .progress = {"IDS_MSG_IMPORT_PROGRESS"},
    .finishedCount = {"IDS_MSG_IMPORT_COUNT"},
    .quitQuestion = DBCQuestionId::QuitAfterImport,
};

constexpr DBCConverterWindowTexts exportTexts {
    .dataPathLabel = {"IDS_LABEL_EXPORT_DATA_PATH"},
    .databasePathLabel = {"IDS_LABEL_EXPORT_VMDB_PATH"},
    .convertButton = {"IDS_BUTTON_EXPORT"},
    .convertKey = Qt::CTRL | Qt::Key_E,
    .label = {"IDS_LBL_EXPORT"},
    .progress = {"IDS_MSG_EXPORT_PROGRESS"},
    .finishedCount = {"IDS_MSG_EXPORT_COUNT"},
    .quitQuestion = DBCQuestionId::QuitAfterExport,
};

} // namespace

const DBCConverterWindowTexts& DBCConverterWindowTexts::of(OperationType type)
{
    return type == OperationType::Export ? exportTexts : importTexts;
}
