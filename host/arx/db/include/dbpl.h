#pragma once

#include "dbents.h"
