#pragma once

#include <afxcoll.h>
#include <zuhost/texts.h>

#include <initializer_list>
#include <string>
#include <vector>

using Texts = std::vector<std::wstring>;

template <typename List = std::initializer_list<const wchar_t*>>
CStringArray arrayOf(const List& texts) {
    CStringArray array;
    for (const auto& text : texts)
        array.Add(zuhost::textOf(text));
    return array;
}

inline Texts textsOf(const CStringArray& array) {
    Texts texts;
    for (int i = 0; i < array.GetSize(); ++i)
        texts.emplace_back(zuhost::viewOf(array[i]));
    return texts;
}
