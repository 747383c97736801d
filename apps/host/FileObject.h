// A file on the disk, as scripts see it.
#pragma once

#include <string>

#include "apps/host/ScriptObject.h"

namespace veygrid {

// Members: Text (read and written; UTF-8 when written), Path, Exists, Size in bytes, Bytes (an
// array of numbers), Delete.
class FileObject : public ScriptObject {
  public:
    explicit FileObject(std::wstring path);

  private:
    std::wstring m_path;
};

// Throws ScriptFault when the file cannot be read.
std::string ReadBytes(const std::wstring& path);

}  // namespace veygrid
