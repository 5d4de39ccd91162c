// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/PrivateBus.h"

#include "tests/app/Companion.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

constexpr const char* configuration = R"(<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <servicedir>%1</servicedir>
  <policy context="default">
    <allow send_destination="*"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

void write(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

PrivateBus::PrivateBus()
    : _formerAddress(qgetenv(addressVariable))
{
    const QString file = _folder.filePath(u"bus.conf"_s);
    write(file, QString::fromLatin1(configuration).arg(_folder.path()));
    startCompanion(_daemon, u"dbus-daemon"_s,
        {u"--config-file="_s + file, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s});
    _address = firstLineOf(_daemon);
    qputenv(addressVariable, _address);
}

PrivateBus::~PrivateBus()
{
    if (_formerAddress.isEmpty())
        qunsetenv(addressVariable);
    else
        qputenv(addressVariable, _formerAddress);
    endCompanion(_daemon);
}

void PrivateBus::offerService(const QString& service, const QString& program)
{
    write(_folder.filePath(service + u".service"_s),
        u"[D-BUS Service]\nName=%1\nExec=%2\n"_s.arg(service, program));
}
