// SPDX-License-Identifier: GPL-3.0-or-later
// Makes empty card database packages.
#pragma once

#include "operation/base/DBCProblem.h"

class DBCPackageCreator {
public:
    enum class Outcome : quint8 {
        Created,
        Refused, // before anything was made
        Failed, // what had been made was removed again
    };

    struct Result {
        Outcome outcome;
        DBCProblem problem; // empty when created
    };

    // Makes a package without cards at path. Refused when the name does not end in ".vmdb", when
    // anything stands at the path, and when there is no folder to make it in.
    static Result create(const QString& path);
};
