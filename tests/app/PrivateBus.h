// SPDX-License-Identifier: GPL-3.0-or-later
// A message bus that takes the place of the user's session bus while the object lives. Nothing but
// what the test puts there is on it.
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
    // The bus starts the program when somebody asks for the service.
    void offerService(const QString& service, const QString& program);

private:
    QTemporaryDir _folder;
    QProcess _daemon;
    QByteArray _address;
    QByteArray _formerAddress;
};
