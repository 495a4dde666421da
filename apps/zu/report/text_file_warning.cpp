#include "report/text_file_warning.h"

#include "text.h"

#include <zucomn/model/text_files.h>

#include <iostream>

namespace zu::app {

void warnOfUnmarkedUtf8(const std::string& file) {
    if (zucomn::isUnmarkedUtf8(wide(file)))
        std::cerr
            << file
            << ": warning: seems to be UTF-8 but has no byte-order mark, so it is read as code page 932; "
               "save it with the mark, or in code page 932\n";
}

} // namespace zu::app
