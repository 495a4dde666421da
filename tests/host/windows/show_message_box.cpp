// Shows a message box before any window exists and prints the number of the button pressed.
#include <windows.h>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    const UINT style = argc > 1 ? static_cast<UINT>(std::strtoul(argv[1], nullptr, 0)) : MB_OK;
    std::cout << MessageBoxW(nullptr, L"属性を<b>保存</b>できません。\n850㎥/h", L"配管", style) << std::endl;
    return 0;
}
