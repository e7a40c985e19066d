// What an extension module needs: AFX_EXTENSION_MODULE, AfxInitExtensionModule, CDynLinkLibrary.
#pragma once

#include "afxstat_.h"
