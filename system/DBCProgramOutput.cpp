// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCProgramOutput.h"

#include "operation/base/DBCStopQuestion.h"
#include "system/DBCDescriptor.h"
#include "system/DBCSignalCleanup.h"

#include <QFile>

#include <array>
#include <optional>
#include <vector>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using End = DBCProgramRun::End;

// A list of strings in the form that a new program takes: pointers, followed by a null pointer.
class Words {
public:
    void add(const QByteArray& word) { _words.push_back(word); }
    char* const* pointers()
    {
        _pointers.clear();
        for (QByteArray& word : _words)
            _pointers.push_back(word.data());
        _pointers.push_back(nullptr);
        return _pointers.data();
    }

private:
    std::vector<QByteArray> _words;
    std::vector<char*> _pointers;
};

// Loading the user's locale takes "du" as long as measuring a file, and the digits that "du" prints
// need no locale.
char* const* environmentWithoutLocale()
{
    static Words words = [] {
        Words inherited;
        inherited.add("LC_ALL=C");
        for (char** entry = environ; *entry; ++entry) {
            if (std::strncmp(*entry, "LC_ALL=", std::strlen("LC_ALL=")) != 0)
                inherited.add(*entry);
        }
        return inherited;
    }();
    static char* const* const pointers = words.pointers();
    return pointers;
}

class SpawnAttributes {
public:
    SpawnAttributes()
    {
        posix_spawnattr_init(&_attributes);
        posix_spawnattr_setflags(
            &_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&_attributes, &none);
        sigset_t ignoredHere;
        sigemptyset(&ignoredHere);
        sigaddset(&ignoredHere, SIGPIPE);
        sigaddset(&ignoredHere, SIGXFSZ);
        posix_spawnattr_setsigdefault(&_attributes, &ignoredHere);
        // The new program gets a process group of its own. A Ctrl-C requests a cancel from this
        // program and must not end the new one.
        posix_spawnattr_setpgroup(&_attributes, 0);
    }
    ~SpawnAttributes() { posix_spawnattr_destroy(&_attributes); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    const posix_spawnattr_t* get() const { return &_attributes; }

private:
    posix_spawnattr_t _attributes {};
};

class SpawnDescriptors {
public:
    // Standard output is set first, because output may have the number of standard input or
    // standard error, which the later steps replace.
    explicit SpawnDescriptors(int output)
    {
        posix_spawn_file_actions_init(&_actions);
        if (posix_spawn_file_actions_adddup2(&_actions, output, STDOUT_FILENO) != 0
            || posix_spawn_file_actions_addopen(&_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0)
                != 0
            || posix_spawn_file_actions_addopen(&_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0)
                != 0) {
            posix_spawn_file_actions_destroy(&_actions);
            throw std::bad_alloc();
        }
    }
    ~SpawnDescriptors() { posix_spawn_file_actions_destroy(&_actions); }
    SpawnDescriptors(const SpawnDescriptors&) = delete;
    SpawnDescriptors& operator=(const SpawnDescriptors&) = delete;

    const posix_spawn_file_actions_t* get() const { return &_actions; }

private:
    posix_spawn_file_actions_t _actions {};
};

// A program that was started. The destructor kills it unless waitForEnd() has been called.
class Child {
public:
    Child(pid_t process, DBCDescriptor output)
        : _process(process)
        , _output(std::move(output))
    {
        // From here on, a signal that ends this program also ends the process.
        _cleanup.emplace(process);
    }
    ~Child()
    {
        if (_process <= 0)
            return;
        kill(-_process, SIGKILL); // kills its whole process group
        (void)waitForEnd();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // Reads to the end of the program's output. Returns false if the operation is to stop before
    // that.
    bool readOutput(QByteArray* output) const
    {
        constexpr int chunkSize = 4096;
        std::array<char, chunkSize> chunk {};
        DBCLongWait wait;
        while (!wait.isToStop()) {
            pollfd readable {_output.get(), POLLIN, 0};
            if (poll(&readable, 1, wait.millisecondsToQuestion()) <= 0)
                continue;
            const ssize_t count = read(_output.get(), chunk.data(), chunk.size());
            if (count == 0)
                return true;
            if (count > 0)
                output->append(chunk.data(), count);
            else if (errno != EINTR && errno != EAGAIN)
                return true;
        }
        return false;
    }

    // Waits until the program has ended and returns its status as waitpid() gives it.
    int waitForEnd()
    {
        _cleanup.reset(); // soon the process number may belong to another process
        int status = 0;
        while (waitpid(_process, &status, 0) == -1 && errno == EINTR) { }
        _process = 0;
        return status;
    }

private:
    pid_t _process;
    DBCDescriptor _output;
    std::optional<DBCSignalCleanup> _cleanup;
};

} // namespace

DBCProgramRun runProgram(const QString& program, const QStringList& arguments)
{
    std::array<int, 2> ends {};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {End::NotStarted, errno, {}};
    DBCDescriptor reading(ends[0]);
    DBCDescriptor writing(ends[1]);

    const QByteArray path = QFile::encodeName(program);
    Words words;
    words.add(path);
    for (const QString& argument : arguments)
        words.add(QFile::encodeName(argument));
    const SpawnAttributes attributes;
    const SpawnDescriptors descriptors(writing.get());
    pid_t process = 0;
    if (const int error = posix_spawn(&process, path.constData(), descriptors.get(),
            attributes.get(), words.pointers(), environmentWithoutLocale());
        error != 0)
        return {End::NotStarted, error, {}};
    Child child(process, std::move(reading));
    (void)writing.close();

    QByteArray output;
    if (!child.readOutput(&output))
        return {End::Stopped, 0, {}};
    const int status = child.waitForEnd();
    if (WIFSIGNALED(status))
        return {End::Killed, WTERMSIG(status), {}};
    return {End::Exited, WEXITSTATUS(status), output};
}
