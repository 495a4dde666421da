#pragma once

// What is left of the header in a build without windows: message boxes.

#include "afx.h"
#include "zuhost/message_box.h"
