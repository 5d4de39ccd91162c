// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a "Version.txt" of any bytes.
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCTextEncoding.h"
#include "fuzz/FuzzTarget.h"
#include "text/DBCCharacterSets.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static FuzzFile file("Version.txt");
    file.write(QByteArrayView(data, static_cast<qsizetype>(size)));
    const auto info = DBCCommonFunction::getVersionInfo(file.path());
    const DBCResultCode code = checkVersionInfo(info);
    if (!info) {
        mustHold(isFailure(code), "a file that cannot be read is refused");
        return 0;
    }
    const QString key = QString::fromLatin1(DBCCommonFunction::versionInfoKey);
    mustHold(info->size() == 1 && info->contains(key), "there is one entry");
    const QString line = info->value(key);
    mustHold(line.isValidUtf16(), "the line is a text");
    for (const QChar unit : newLineCharacters())
        mustHold(!line.contains(unit), "the line is one line");

    file.write(encodeText(QString(line).append(u"\r\nanother"), DBCTextEncoding::Utf16));
    mustHold(DBCCommonFunction::getVersionInfo(file.path()) == info,
        "the line that was written reads back the same");
    mustHold(checkVersionInfo(info) == code, "the same version is judged alike");
    return 0;
}
