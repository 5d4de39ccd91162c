// SPDX-License-Identifier: GPL-3.0-or-later
// A message of the log together with what it is about, for those who want more than its text.
#pragma once

#include <QString>

#include <optional>

enum class DBCLogType : qint32 { Debug = 0, Info = 1, Warning = 2, Error = 3 };

// What a warning or an error means for the card it is about, should the conversion go through.
enum class DBCConsequence : quint8 {
    NotTold,
    ItemShortened, // one item is stored without its end
    WithoutImage, // one of the card's images is left out
    WithoutImages, // all of them are
    WithoutAttachment, // one of the card's attachments is left out
    WithoutAttachments, // all of them are
    Stopped, // the conversion ends here
};

struct DBCLogOrigin {
    QString key = {}; // of the text in the strings table; empty: not told
    std::optional<qint64> number = {}; // line of the data file on import, number of the card on
                                       // export; none: it is about no single card
    QString cardName = {}; // full name on that card
    std::optional<quint32> messageNumber = {}; // of a message that the user was shown
    DBCConsequence consequence = DBCConsequence::NotTold;
};

struct DBCLogEntry {
    DBCLogType type = DBCLogType::Warning;
    QString text;
    DBCLogOrigin origin;
};
