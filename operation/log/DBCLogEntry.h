// SPDX-License-Identifier: GPL-3.0-or-later
// A log message together with what it is about. Observers of the log receive it.
#pragma once

#include <QString>

#include <optional>

enum class DBCLogType : qint32 { Debug = 0, Info = 1, Warning = 2, Error = 3 };

// How a warning or an error affects the card that it is about.
enum class DBCConsequence : quint8 {
    NotTold, // the message does not say
    ItemShortened, // one item is stored without its end
    WithoutImage, // one of the card's images is left out
    WithoutImages, // all of the card's images are left out
    WithoutAttachment, // one of the card's attachments is left out
    WithoutAttachments, // all of the card's attachments are left out
    Stopped, // the conversion ends here
};

struct DBCLogOrigin {
    QString key = {}; // the key of the text in the strings table; empty when not known
    // On import the line of the data file, on export the number of the card, both counted from 1.
    // Not set if the message is not about a single card.
    std::optional<qint64> number = {};
    QString cardName = {}; // the full name on that card; empty when there is none
    std::optional<quint32> messageNumber = {}; // set when the user was shown this message
    DBCConsequence consequence = DBCConsequence::NotTold;
};

struct DBCLogEntry {
    DBCLogType type = DBCLogType::Warning;
    QString text;
    DBCLogOrigin origin;
};
