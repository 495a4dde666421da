#pragma once

#include <cerrno>
