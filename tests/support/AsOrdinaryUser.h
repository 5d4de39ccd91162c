// SPDX-License-Identifier: GPL-3.0-or-later
// Root passes every access check. As long as the object lives, the process has the rights of a user
// who owns nothing yet; whoever is no root stays as he is. Made before the TestHome, it is that
// user's home.
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
