// SPDX-License-Identifier: GPL-3.0-or-later
#include "FaultOptions.h"

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>

namespace {

const std::map<std::string, Fault> faultNames {
    {"none", Fault::None},
    {"error", Fault::Error},
    {"forever", Fault::Forever},
    {"full", Fault::Full},
    {"short", Fault::Short},
    {"kill", Fault::Kill},
    {"torn", Fault::Torn},
    {"hook", Fault::Hook},
};

const std::map<std::string, CallClass> classNames {
    {"open", CallClass::OpenToWrite},
    {"openr", CallClass::OpenToRead},
    {"write", CallClass::Write},
    {"names", CallClass::Names},
    {"flush", CallClass::Flush},
    {"lock", CallClass::Lock},
    {"read", CallClass::Read},
    {"list", CallClass::List},
    {"look", CallClass::Look},
    {"close", CallClass::Close},
};

CallClasses classesIn(const std::string& list)
{
    CallClasses classes = 0;
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t comma = std::min(list.find(',', start), list.size());
        classes = classes | classNames.at(list.substr(start, comma - start));
        start = comma + 1;
    }
    return classes;
}

} // namespace

FaultOptions parseOptions(int argc, char** argv)
{
    FaultOptions options;
    const std::map<std::string, std::function<void(const std::string&)>> setters {
        {"--below", [&](const std::string& value) { options.below.push_back(value); }},
        {"--calls", [&](const std::string& value) { options.classes = classesIn(value); }},
        {"--fault", [&](const std::string& value) { options.fault = faultNames.at(value); }},
        {"--at", [&](const std::string& value) { options.at = std::stol(value); }},
        {"--errno", [&](const std::string& value) { options.error = std::stoi(value); }},
        {"--kill-after", [&](const std::string& value) { options.killAfter = std::stol(value); }},
        {"--signal-at", [&](const std::string& value) { options.signalAt = std::stol(value); }},
        {"--hook", [&](const std::string& value) { options.hook = value; }},
        {"--user", [&](const std::string& value) { options.user = std::stoi(value); }},
        {"--timeout",
            [&](const std::string& value) {
                options.timeoutSeconds = static_cast<unsigned>(std::stoul(value));
            }},
        {"--log", [&](const std::string& value) { options.logFile = value; }},
        {"--report", [&](const std::string& value) { options.reportFile = value; }},
    };
    int i = 1;
    for (; i + 1 < argc && argv[i] != std::string("--"); i += 2)
        setters.at(argv[i])(argv[i + 1]);
    options.program.assign(argv + std::min(i + 1, argc), argv + argc);
    if (options.program.empty())
        throw std::out_of_range("no program");
    options.program.push_back(nullptr);
    return options;
}
