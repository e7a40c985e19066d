// The common controls of the in-memory desktop, as far as they exist here.
#pragma once

#include <windows.h>

#include "commctrl_imagelist.h"
