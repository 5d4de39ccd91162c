// SPDX-License-Identifier: GPL-3.0-or-later
// A message bus that replaces the user's session bus while the object lives. The bus has only the
// services that the test offers.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    QString address() const { return QString::fromLatin1(_address); }
    // Makes the bus start the program when another program calls the service.
    void offerService(const QString& service, const QString& program);

private:
    QTemporaryDir _folder;
    QProcess _daemon;
    QByteArray _address;
    QByteArray _formerAddress;
};
