// The class object through which hosts make objects of one class.
#pragma once

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// Makes an object and hands out its inner unknown with one reference. Throws.
using ObjectMaker = IUnknown* (*)(IUnknown* outer);

// A new factory, asked for `iid`.
HRESULT MakeClassFactory(ObjectMaker maker, REFIID iid, void** target);

}  // namespace veygrid
