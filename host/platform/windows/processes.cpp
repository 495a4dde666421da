#include "zuhost/platform/processes.h"

#include "system_call.h"

#include <array>
#include <cstddef>

namespace zuhost::platform {

namespace {

/// Windows reports exceptions that end a program as a status of this kind.
constexpr DWORD kFirstCrash = 0xC0000000;
constexpr UINT kKilled = 0xC000013A;

HANDLE handleOf(FileHandle file) {
    return reinterpret_cast<HANDLE>(file);
}

FileHandle fileOf(HANDLE handle) {
    return reinterpret_cast<FileHandle>(handle);
}

/// A handle that is closed unless it is passed on.
class OwnedHandle {
public:
    OwnedHandle() = default;
    ~OwnedHandle() {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
    }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;

    [[nodiscard]] HANDLE get() const { return handle_; }
    HANDLE* place() { return &handle_; }
    HANDLE release() {
        const HANDLE handle = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        return handle;
    }

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

SECURITY_ATTRIBUTES inherited() {
    return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
}

struct Pipe {
    Pipe() {
        SECURITY_ATTRIBUTES attributes = inherited();
        const bool isMade = CreatePipe(reading.place(), writing.place(), &attributes, 0) != FALSE &&
                            SetHandleInformation(reading.get(), HANDLE_FLAG_INHERIT, 0) != FALSE;
        error = isMade ? 0 : lastErrorNumber();
    }

    OwnedHandle reading;
    OwnedHandle writing;
    int error = 0;
};

/// Limits what the child inherits to three handles: pipes of other children, inherited too, would stay open
/// until this child ends.
class InheritedHandles {
public:
    explicit InheritedHandles(std::array<HANDLE, 3> handles) : handles_(handles) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory_.resize(size);
        InitializeProcThreadAttributeList(list(), 1, 0, &size);
        UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                                  handles_.size() * sizeof(HANDLE), nullptr, nullptr);
    }
    ~InheritedHandles() { DeleteProcThreadAttributeList(list()); }
    InheritedHandles(const InheritedHandles&) = delete;
    InheritedHandles& operator=(const InheritedHandles&) = delete;

    LPPROC_THREAD_ATTRIBUTE_LIST list() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
    }

private:
    std::array<HANDLE, 3> handles_;
    std::vector<std::byte> memory_;
};

/// Quotes a word as the C library of the child splits command lines: backslashes count before quotes only.
std::wstring quoted(const std::wstring& word) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, L'\\') + L'"';
}

} // namespace

int startProcess(const std::string& program, const std::vector<std::string>& arguments, bool readsInput,
                 Process& process) {
    Pipe output;
    Pipe errors;
    if (output.error != 0 || errors.error != 0)
        return output.error != 0 ? output.error : errors.error;
    const std::wstring name = systemName(program);
    std::wstring line = quoted(name);
    for (const std::string& argument : arguments)
        line += L' ' + quoted(wideText(argument));
    OwnedHandle input;
    SECURITY_ATTRIBUTES attributes = inherited();
    if (readsInput)
        DuplicateHandle(GetCurrentProcess(), GetStdHandle(STD_INPUT_HANDLE), GetCurrentProcess(),
                        input.place(), 0, TRUE, DUPLICATE_SAME_ACCESS);
    else
        *input.place() = CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes,
                                     OPEN_EXISTING, 0, nullptr);
    InheritedHandles handles({input.get(), output.writing.get(), errors.writing.get()});
    STARTUPINFOEXW start{};
    start.StartupInfo.cb = sizeof start;
    start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    start.StartupInfo.hStdInput = input.get();
    start.StartupInfo.hStdOutput = output.writing.get();
    start.StartupInfo.hStdError = errors.writing.get();
    start.lpAttributeList = handles.list();
    PROCESS_INFORMATION made{};
    if (CreateProcessW(name.c_str(), line.data(), nullptr, nullptr, TRUE, EXTENDED_STARTUPINFO_PRESENT,
                       nullptr, nullptr, &start.StartupInfo, &made) == FALSE)
        return lastErrorNumber();
    CloseHandle(made.hThread);
    process = {fileOf(made.hProcess), fileOf(output.reading.release()), fileOf(errors.reading.release())};
    return 0;
}

void killProcess(const Process& process) {
    TerminateProcess(handleOf(process.id), kKilled);
}

ProcessEnd waitForProcess(const Process& process) {
    WaitForSingleObject(handleOf(process.id), INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(handleOf(process.id), &status);
    CloseHandle(handleOf(process.id));
    return status >= kFirstCrash ? ProcessEnd{0, true} : ProcessEnd{static_cast<int>(status), false};
}

} // namespace zuhost::platform
