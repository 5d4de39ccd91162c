// SPDX-License-Identifier: GPL-3.0-or-later
// Makes empty card database packages.
#pragma once

#include "operation/base/DBCProblem.h"

class DBCPackageCreator {
public:
    enum class Outcome : quint8 {
        Created,
        Refused, // a check failed before anything was created
        Failed, // everything that had been created was removed again
    };

    struct Result {
        Outcome outcome;
        DBCProblem problem; // empty when created
    };

    // Creates a package without cards at path. Refused when the name does not end in ".vmdb", when
    // something exists at the path, or when its parent folder does not exist. The caller shows the
    // problem; nothing is logged.
    static Result create(const QString& path);
};
