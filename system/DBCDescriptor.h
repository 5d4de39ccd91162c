// SPDX-License-Identifier: GPL-3.0-or-later
// An open file descriptor that closes itself.
#pragma once

#include <utility>

#include <unistd.h>

class DBCDescriptor {
public:
    // Takes over what open() returned, its failure included.
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

    // False when something written before could not be kept after all. Closing twice does nothing.
    [[nodiscard]] bool close()
    {
        return _descriptor < 0 || ::close(std::exchange(_descriptor, -1)) == 0;
    }

private:
    int _descriptor;
};
