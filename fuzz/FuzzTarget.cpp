// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/FuzzTarget.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "system/DBCDescriptor.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// This log level is above that of errors. The program then composes its messages, which is worth
// testing, but does not write them, which would only take time.
constexpr const char* settings = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>Log Level</key><integer>4</integer></dict></plist>)";

fs::path memoryFolder()
{
    std::error_code error;
    const fs::path memory = "/dev/shm";
    return !std::getenv("TMPDIR") && fs::is_directory(memory, error) ? memory
                                                                     : fs::temp_directory_path();
}

class FuzzHome {
public:
    FuzzHome()
    {
        std::string name = (memoryFolder() / "velmora_fuzz_XXXXXX").string();
        mustHold(::mkdtemp(name.data()) != nullptr, "there is room for a temporary folder");
        _folder = name;
        const fs::path preferences = _folder / "Library" / "Preferences";
        fs::create_directories(preferences);
        std::ofstream(preferences / "com.velmora.VelmoraConverter.plist") << settings;
        ::setenv("HOME", name.c_str(), 1);
        DBCLocalizable::setLanguage(DBCLocalizable::Language::Japanese);
    }
    ~FuzzHome()
    {
        std::error_code error;
        fs::remove_all(_folder, error);
    }
    FuzzHome(const FuzzHome&) = delete;
    FuzzHome& operator=(const FuzzHome&) = delete;

    std::string file(const char* name) const { return (_folder / name).string(); }

private:
    fs::path _folder;
};

// Returns the home folder of this program, which the first call creates. homeFromTheStart makes
// that call before main(), because some targets have no FuzzFile that would make it.
const FuzzHome& home()
{
    static const FuzzHome theHome;
    return theHome;
}
const FuzzHome& homeFromTheStart = home();

} // namespace

void mustHold(bool holds, const char* claim)
{
    if (holds)
        return;
    std::fprintf(stderr, "This must hold and does not: %s\n", claim);
    std::abort();
}

FuzzFile::FuzzFile(const char* name)
    : _path(QFile::decodeName(home().file(name).c_str()))
{
}

void FuzzFile::write(QByteArrayView bytes) const
{
    const DBCDescriptor file(::open(QFile::encodeName(_path).constData(),
        O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR));
    mustHold(file
            && ::write(file.get(), bytes.data(), static_cast<size_t>(bytes.size())) == bytes.size(),
        "memory takes the input");
}

QByteArray FuzzFile::read() const
{
    QFile file(_path);
    mustHold(file.open(QIODevice::ReadOnly), "the file can be read");
    return file.readAll();
}

quint8 FuzzInput::byte()
{
    if (_bytes.isEmpty())
        return 0;
    const auto value = static_cast<quint8>(_bytes.front());
    _bytes = _bytes.sliced(1);
    return value;
}

std::string FuzzInput::line()
{
    const qsizetype end = _bytes.indexOf('\0');
    std::string result = bytes(end < 0 ? _bytes.size() : end);
    byte();
    return result;
}

std::string FuzzInput::bytes(qsizetype count)
{
    const QByteArrayView taken = _bytes.first(qMin(count, _bytes.size()));
    _bytes = _bytes.sliced(taken.size());
    return taken.toByteArray().toStdString();
}

QString FuzzInput::text()
{
    QString result = remainingText();
    const qsizetype end = result.indexOf(QChar(u'\0'));
    const qsizetype taken = end < 0 ? result.size() : end + 1;
    _bytes = _bytes.sliced(taken * qsizetype(sizeof(char16_t)));
    return end < 0 ? result : result.first(end);
}

QString FuzzInput::remainingText()
{
    QString result(_bytes.size() / qsizetype(sizeof(char16_t)), Qt::Uninitialized);
    std::memcpy(
        result.data(), _bytes.data(), static_cast<size_t>(result.size()) * sizeof(char16_t));
    return result;
}
