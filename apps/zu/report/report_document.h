#pragma once

#include "report/output.h"

#include <QByteArray>

namespace zu::app {

/// The reports as a PDF document on A4 paper, in the user's language. Their plans must be PNG pictures.
[[nodiscard]] QByteArray reportDocument(const Json& reports);

} // namespace zu::app
