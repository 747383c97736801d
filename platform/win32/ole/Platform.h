// The headers of Windows and OLE, in the order that they need.
#pragma once

#include <windows.h>

#include <cguid.h>
#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
#include <unknwn.h>
#include <wrl/client.h>
