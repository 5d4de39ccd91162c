// SPDX-License-Identifier: GPL-3.0-or-later
// Drops root's rights for as long as the object lives, because root passes every access check. The
// process then runs as the user "nobody". It changes nothing when the tests do not run as root. A
// test creates this object before its TestHome, so that "nobody" owns that home folder.
#pragma once

#include <QtGlobal>

#include <unistd.h>

class AsOrdinaryUser {
public:
    AsOrdinaryUser()
        : _wasRoot(geteuid() == 0)
    {
        constexpr uid_t nobody = 65534;
        if (_wasRoot && seteuid(nobody) != 0)
            qFatal("cannot drop root");
    }
    ~AsOrdinaryUser()
    {
        if (_wasRoot && seteuid(0) != 0)
            qFatal("cannot become root again");
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

private:
    bool _wasRoot;
};
