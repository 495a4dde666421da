#pragma once

#include <afxcoll.h>

#include <string>
#include <vector>

using Fields = std::vector<std::wstring>;

inline Fields fieldsOf(const CStringArray& array) {
    Fields fields;
    for (int i = 0; i < array.GetSize(); ++i)
        fields.emplace_back(array[i].view());
    return fields;
}
