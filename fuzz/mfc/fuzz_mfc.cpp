// Any bytes as a profile file and as a string table. Nothing is lost by reading and writing; a value that is
// set is read back, also from the bytes written, and changes no other line; texts of a table round trip.
#include "../support/require.h"

#include <zuhost/profile.h>
#include <zuhost/string_table.h>

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

using zuhost::Profile;
using zuhost::StringTable;

using zu::fuzz::require;

namespace {

/// A text that a profile file can hold in every encoding: no characters of its syntax, no outer spaces.
std::wstring plainText(FuzzedDataProvider& input) {
    static constexpr std::wstring_view kCharacters = L"abKZ09.-_表ソ・ｱ~";
    std::wstring text;
    for (std::size_t count = input.ConsumeIntegralInRange<std::size_t>(1, 8); count > 0; --count)
        text += kCharacters[input.ConsumeIntegralInRange<std::size_t>(0, kCharacters.size() - 1)];
    return text;
}

/// A name that the file already has, or a new one.
std::wstring name(FuzzedDataProvider& input, const std::vector<std::wstring>& known) {
    if (known.empty() || input.ConsumeBool())
        return plainText(input);
    return known[input.ConsumeIntegralInRange<std::size_t>(0, known.size() - 1)];
}

void edit(Profile& profile, FuzzedDataProvider& input) {
    const std::wstring section = name(input, profile.sections());
    const std::wstring key = name(input, profile.keys(section));
    const std::string before = profile.bytes();
    switch (input.ConsumeIntegralInRange(0, 2)) {
    case 0:
        profile.remove(section, key);
        break;
    case 1:
        profile.removeSection(section);
        break;
    default:
        const std::wstring value = plainText(input);
        if (!profile.set(section, key, value)) {
            require(profile.bytes() == before, "a refused write changed the file");
            return;
        }
        require(profile.value(section, key) == value, "a value is not read as it was set");
        require(Profile(profile.bytes()).value(section, key) == value,
                "a value is not read as it was written");
        return;
    }
    require(profile.bytes().size() <= before.size(), "removing made the file longer");
}

void checkProfile(const std::string& bytes, FuzzedDataProvider& input) {
    Profile profile(bytes);
    require(profile.bytes() == bytes, "a file changed by being read");
    for (int edits = 0; edits < 8 && input.remaining_bytes() > 0; ++edits)
        edit(profile, input);
}

void checkTable(const std::string& bytes) {
    const StringTable table = StringTable::parse(bytes);
    std::size_t bad = 0;
    const StringTable again = StringTable::parse(table.format(), &bad);
    require(bad == 0 && again.texts() == table.texts(), "a string table changed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const std::string bytes = input.ConsumeRandomLengthString();
    checkTable(bytes);
    checkProfile(bytes, input);
    return 0;
}
