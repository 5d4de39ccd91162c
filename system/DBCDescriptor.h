// SPDX-License-Identifier: GPL-3.0-or-later
// An open file descriptor that closes itself.
#pragma once

#include <utility>

#include <unistd.h>

class DBCDescriptor {
public:
    // Takes ownership of the descriptor that open() returned, which may be -1 for a failure.
    explicit DBCDescriptor(int descriptor)
        : _descriptor(descriptor)
    {
    }
    ~DBCDescriptor() { (void)close(); }
    DBCDescriptor(const DBCDescriptor&) = delete;
    DBCDescriptor& operator=(const DBCDescriptor&) = delete;
    DBCDescriptor(DBCDescriptor&& other) noexcept
        : _descriptor(std::exchange(other._descriptor, -1))
    {
    }
    DBCDescriptor& operator=(DBCDescriptor&& other) noexcept
    {
        std::swap(_descriptor, other._descriptor);
        return *this;
    }

    explicit operator bool() const { return _descriptor >= 0; }
    int get() const { return _descriptor; }

    // Returns false if close() reports that earlier writes were lost. Closing again does nothing
    // and returns true.
    [[nodiscard]] bool close()
    {
        return _descriptor < 0 || ::close(std::exchange(_descriptor, -1)) == 0;
    }

private:
    int _descriptor;
};
