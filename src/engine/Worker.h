#pragma once

#include "core/Worker.h"
