// SPDX-License-Identifier: GPL-3.0-or-later
// One file call of a traced thread, at the moment before it is made.
#pragma once

#include "SystemCalls.h"

#include <optional>
#include <string>

class TracedCall {
public:
    // None when the call touches no file, or only asks about a descriptor's flags.
    static std::optional<TracedCall> of(pid_t thread);

    const SystemCall& call() const { return *_call; }
    CallClass callClass() const { return _class; } // opening sorted by its flags
    bool creates() const { return _creates; }
    // Absolute; the second is empty unless the call takes two.
    const std::string& path() const { return _path; }
    const std::string& secondPath() const { return _secondPath; }

    // Changes the call; false when the thread is gone.
    bool halve(); // of a write: half the bytes. False also where nothing can be halved.
    bool replaceByError(int error);

private:
    bool readPaths();
    bool sortOpening();
    std::string stringAt(unsigned long address) const;
    std::string pathOfDescriptor(int descriptor) const;
    std::string absolutePath(int folder, unsigned long address) const;

    pid_t _thread = 0;
    const SystemCall* _call = nullptr;
    CallClass _class = CallClass::Look;
    bool _creates = false;
    user_regs_struct _registers {};
    std::string _path;
    std::string _secondPath;
};
