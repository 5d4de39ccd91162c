// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCSignalCleanup.h"

#include <array>
#include <atomic>

#include <csignal>
#include <unistd.h>

namespace {

// One operation needs fewer slots than this at a time. A signal does not clean up for an object
// that found no free slot.
constexpr int slotCount = 16;

// A signal handler may neither lock nor allocate, so each slot holds a pointer to a complete entry,
// or null.
std::array<std::atomic<const void*>, slotCount> slots {};

static_assert(std::atomic<const void*>::is_always_lock_free);

} // namespace

DBCSignalCleanup::DBCSignalCleanup(const QList<QByteArray>& files, const QByteArray& folder)
    : _entry {files, folder, 0}
{
    note();
}

DBCSignalCleanup::DBCSignalCleanup(pid_t process)
    : _entry {{}, {}, process}
{
    note();
}

DBCSignalCleanup::~DBCSignalCleanup()
{
    if (_slot >= 0)
        slots.at(static_cast<std::size_t>(_slot)).store(nullptr);
}

void DBCSignalCleanup::note()
{
    for (int slot = 0; slot < slotCount; ++slot) {
        const void* nothing = nullptr;
        if (slots.at(static_cast<std::size_t>(slot)).compare_exchange_strong(nothing, &_entry)) {
            _slot = slot;
            return;
        }
    }
}

void DBCSignalCleanup::install()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (std::signal(signal, cleanUpAndEnd) == SIG_IGN)
            std::signal(signal, SIG_IGN);
    }
}

// This function calls only what a signal handler may call. The signal that it raises is blocked
// until it returns, and then ends the program as if there were no handler.
void DBCSignalCleanup::cleanUpAndEnd(int signal)
{
    for (const auto& slot : slots) {
        const auto* entry = static_cast<const Entry*>(slot.load());
        if (!entry)
            continue;
        for (const QByteArray& file : entry->files)
            unlink(file.constData());
        if (!entry->folder.isEmpty())
            rmdir(entry->folder.constData());
        if (entry->process > 0)
            kill(-entry->process, SIGKILL);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}
