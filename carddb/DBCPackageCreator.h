// SPDX-License-Identifier: GPL-3.0-or-later
// Makes empty card database packages.
#pragma once

#include "operation/base/DBCProblem.h"

class DBCPackageCreator {
public:
    enum class Outcome : quint8 {
        Created,
        Refused, // a check failed before anything was created
        // The creation stopped halfway, and everything that had been created was removed again.
        Failed,
    };

    struct Result {
        Outcome outcome;
        DBCProblem problem; // empty when created
    };

    // Creates a package without cards at path. Refuses when the name does not end in ".vmdb", when
    // something exists at the path, or when its parent folder does not exist. It logs nothing; the
    // caller has to show the problem.
    static Result create(const QString& path);
};
