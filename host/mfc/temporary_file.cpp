#include "temporary_file.h"

#include <cerrno>

namespace zuhost {

using file_ops::File;

namespace {

/// Short, so that it fits wherever the name of the file to be replaced does.
constexpr const char* kName = ".zu-saving-";
constexpr int kMostNames = 1000;

/// Removes a file whose process has ended. Under its lock, so that no two remove it, the second one with a
/// living file in its place.
bool removeLeftover(const std::string& name) {
    File left;
    return left.open(name, File::Mode::update) == 0 && left.tryLock() == 0 && isAt(left, name) &&
           file_ops::remove(name) == 0;
}

} // namespace

bool isAt(File& file, const std::string& name) {
    FileIdentity opened;
    FileIdentity named;
    return file.identify(opened) == 0 && file_ops::identify(name, named) == 0 && opened.isSameFile(named);
}

int TemporaryFile::create(const std::string& folder) {
    folder_ = folder;
    const int error = file_.openUnnamed(folder);
    if (error == 0)
        return file_.tryLock();
    return error == EOPNOTSUPP ? takeName([this](const std::string& name) { return createNamed(name); })
                               : error;
}

int TemporaryFile::createNamed(const std::string& name) {
    if (const int error = file_.open(name, File::Mode::createNew))
        return error;
    // Until it is locked, another saver may remove it as a leftover.
    const int error = file_.tryLock();
    if (error == EWOULDBLOCK || (error == 0 && !isAt(file_, name))) {
        file_ = File();
        return EEXIST;
    }
    if (error != 0)
        file_ops::remove(name);
    return error;
}

int TemporaryFile::takeName(const std::function<int(const std::string&)>& make) {
    for (int number = 0; number < kMostNames; ++number) {
        const std::string name = folder_ + '/' + kName + std::to_string(number);
        int error = make(name);
        if (error == EEXIST && removeLeftover(name))
            error = make(name);
        if (error == 0)
            name_ = name;
        if (error != EEXIST)
            return error;
    }
    return EBUSY;
}

int TemporaryFile::renameTo(const std::string& target) {
    if (name_.empty())
        if (const int error = takeName([this](const std::string& name) { return file_.link(name); }))
            return error;
    const int error = file_ops::rename(name_, target);
    if (error == 0)
        name_.clear();
    return error;
}

void TemporaryFile::discard() {
    if (!name_.empty())
        file_ops::remove(name_);
    file_.close();
}

} // namespace zuhost
