#include "command_line.h"
#include "commands.h"
#include "failure.h"
#include "output.h"
#include "settings_file.h"
#include "text.h"

#include <zucomn/link_info.h>
#include <zucomn/tables.h>

#include <iostream>
#include <memory>
#include <set>
#include <string_view>

namespace zu::app {

namespace {

struct Options {
    std::string file;
    std::vector<std::string> keys;
    std::string settings;
    bool json = false;
};

void get(const Options& options) {
    const SettingsFile settings(options.settings);
    CStringArray keys;
    CStringArray values;
    for (const std::string& key : options.keys)
        keys.Add(wide(key));
    if (!ZuComn_GetLinkInfo(wide(options.file), keys, values))
        throw Failure(options.file +
                      (ZuComn_findFile(wide(options.file)) ? ": holds no records" : ": can't be read"));
    if (options.json) {
        printJson(Json(narrow(values)));
        return;
    }
    for (const std::string& value : narrow(values))
        std::cout << value << '\n';
}

/// A save takes comments and what follows "END" for records, a look-up does not: so a pair may be in the file
/// and yet not be found.
void tellHiddenPairs(const CString& file, const CStringArray& keys, const CStringArray& values) {
    CStringArray found;
    ZuComn_GetLinkInfo(file, keys, found);
    std::set<std::wstring_view> told;
    for (int i = 0; i < keys.GetSize(); ++i) {
        CString value = values[i];
        const bool isFound = i < found.GetSize() && found[i] == value.TrimRight(L' ');
        if (told.insert(keys[i].view()).second && !isFound)
            std::cerr << "zu: " << narrow(keys[i].view()) << ": saved, but a look-up finds \""
                      << (i < found.GetSize() ? narrow(found[i].view()) : "") << "\"\n";
    }
}

/// A key may hold line ends, a value neither "|" nor line ends.
void save(const Options& options) {
    const SettingsFile settings(options.settings);
    CStringArray keys;
    CStringArray values;
    for (const std::string& pair : options.keys) {
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos)
            throw WrongUsage(pair + ": a pair is written KEY=VALUE");
        if (pair.find('|') != std::string::npos || pair.find('\n', equals) != std::string::npos)
            throw WrongUsage(pair + ": a record can't hold \"|\", nor a value a line end");
        keys.Add(wide(pair.substr(0, equals)));
        values.Add(wide(pair.substr(equals + 1)));
    }
    // With its folder, so that backup and temporary file lie beside it.
    const CString file = fullPath(options.file);
    if (!ZuComn_SaveLinkInfo(file, keys, values))
        throw Failure(options.file + ": can't be saved");
    tellHiddenPairs(file, keys, values);
}

} // namespace

void addLinkCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* link = program.add_subcommand("link", "The link information file");
    link->require_subcommand();
    Command* reading =
        link->add_subcommand("get", "Look keys up; one value a line, empty for a key that is not there");
    reading->add_option("FILE", options->file, "The file")->required();
    reading->add_option("KEY", options->keys, "Keys")->required();
    reading->add_flag("--json", options->json, "As JSON");
    Command* writing = link->add_subcommand("save", "Merge pairs into the file");
    writing->add_option("FILE", options->file, "The file")->required();
    writing->add_option("PAIR", options->keys, "KEY=VALUE")->required();
    for (Command* command : {reading, writing})
        command->add_option("--settings", options->settings,
                            "Master settings file, needed to save a file without \".\" in its path");
    reading->callback([options] { get(*options); });
    writing->callback([options] { save(*options); });
}

} // namespace zu::app
