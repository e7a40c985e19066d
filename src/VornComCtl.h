// The library's one header for hosts.
#pragma once

#include "core/VornComCtlApi.h"
#include "core/VornFunctions.h"
#include "core/VornArray.h"
#include "core/VornSortedArray.h"
#include "core/VornItemArrays.h"
#include "tree/VornTreeTypes.h"
#include "tree/VornTreeCtrl.h"
#include "paint/VornDC.h"
#include "options/VornTreeOptions.h"
#include "selection/VornTreeSelection.h"
#include "selection/VornTreeMultiSelection.h"
#include "paint/VornTreeDC.h"
#include "edit/VornTreeEdit.h"
