#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>

#include <deque>
#include <string>

// Conversions between wide texts and bytes of a code page, by default the platform's (CP_ACP: 932). Each
// object holds the converted text for its lifetime: in `f(CT2A(text))` up to the end of the call. Null stays
// null. Characters that the code page cannot represent become "?".

namespace zuhost {

[[nodiscard]] ZUHOST_API std::string narrowText(const wchar_t* text, UINT codePage);
[[nodiscard]] ZUHOST_API std::wstring wideText(const char* bytes, UINT codePage);

} // namespace zuhost

class CW2A {
public:
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    CW2A(const wchar_t* text, UINT codePage = CP_ACP)
        : bytes_(zuhost::narrowText(text, codePage)), m_psz(text != nullptr ? bytes_.data() : nullptr) {}
    CW2A(const CW2A&) = delete;
    CW2A& operator=(const CW2A&) = delete;
    ~CW2A() = default;
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    operator char*() const { return m_psz; }

private:
    std::string bytes_;

public:
    char* const m_psz;
};

class CA2W {
public:
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    CA2W(const char* bytes, UINT codePage = CP_ACP)
        : text_(zuhost::wideText(bytes, codePage)), m_psz(bytes != nullptr ? text_.data() : nullptr) {}
    CA2W(const CA2W&) = delete;
    CA2W& operator=(const CA2W&) = delete;
    ~CA2W() = default;
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    operator wchar_t*() const { return m_psz; }

private:
    std::wstring text_;

public:
    wchar_t* const m_psz;
};

/// A wide text as it is.
class CW2W {
public:
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    CW2W(const wchar_t* text)
        : text_(text != nullptr ? text : L""), m_psz(text != nullptr ? text_.data() : nullptr) {}
    CW2W(const CW2W&) = delete;
    CW2W& operator=(const CW2W&) = delete;
    ~CW2W() = default;
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    operator wchar_t*() const { return m_psz; }

private:
    std::wstring text_;

public:
    wchar_t* const m_psz;
};

using CT2A = CW2A;
using CT2CA = CW2A;
using CW2CA = CW2A;
using CA2T = CA2W;
using CA2CT = CA2W;
using CA2CW = CA2W;
using CT2W = CW2W;
using CT2CW = CW2W;
using CW2T = CW2W;
using CW2CT = CW2W;

namespace zuhost {

/// The converted texts of a function with USES_CONVERSION.
class ConvertedTexts {
public:
    char* narrow(const wchar_t* text) {
        return text != nullptr ? narrow_.emplace_back(narrowText(text, CP_ACP)).data() : nullptr;
    }
    wchar_t* wide(const char* bytes) {
        return bytes != nullptr ? wide_.emplace_back(wideText(bytes, CP_ACP)).data() : nullptr;
    }

private:
    std::deque<std::string> narrow_;
    std::deque<std::wstring> wide_;
};

} // namespace zuhost

/// Declares the texts that A2W and its kin convert in the function.
#define USES_CONVERSION [[maybe_unused]] zuhost::ConvertedTexts zuConvertedTexts
#define A2W(bytes) zuConvertedTexts.wide(bytes)
#define A2T(bytes) zuConvertedTexts.wide(bytes)
#define A2CW(bytes) static_cast<const wchar_t*>(zuConvertedTexts.wide(bytes))
#define A2CT(bytes) static_cast<const wchar_t*>(zuConvertedTexts.wide(bytes))
#define W2A(text) zuConvertedTexts.narrow(text)
#define T2A(text) zuConvertedTexts.narrow(text)
#define W2CA(text) static_cast<const char*>(zuConvertedTexts.narrow(text))
#define T2CA(text) static_cast<const char*>(zuConvertedTexts.narrow(text))
