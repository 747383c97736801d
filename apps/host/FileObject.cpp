// A file on the disk, as scripts see it.
#include "apps/host/FileObject.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "apps/host/Text.h"

namespace veygrid {

namespace {

namespace fs = std::filesystem;

void WriteBytes(const std::wstring& path, const std::string& bytes) {
    std::ofstream file(fs::path(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        throw ScriptFault{L"cannot write " + path};
    }
}

Variant SizeOf(const std::wstring& path) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    return Variant::Of(error ? -1L : static_cast<long>(size));
}

Variant BytesOf(const std::wstring& path) {
    std::vector<Variant> values;
    for (const char byte : ReadBytes(path)) {
        values.push_back(Variant::Of(static_cast<long>(static_cast<unsigned char>(byte))));
    }
    return Variant::Of(values);
}

}  // namespace

std::string ReadBytes(const std::wstring& path) {
    std::ifstream file(fs::path(path), std::ios::binary);
    if (!file) {
        throw ScriptFault{L"cannot read " + path};
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

FileObject::FileObject(std::wstring path) : m_path(std::move(path)) {
    Add(L"Text", 0, 0, [this](const ScriptArguments&) {
        return Variant::Of(WideFromFileBytes(ReadBytes(m_path)));
    });
    AddPut(L"Text", [this](const ScriptArguments& given) {
        WriteBytes(m_path, Utf8FromWide(given.Text(0)));
    });
    Add(L"Path", 0, 0, [this](const ScriptArguments&) { return Variant::Of(m_path); });
    Add(L"Exists", 0, 0, [this](const ScriptArguments&) {
        std::error_code error;
        return Variant::Of(fs::exists(m_path, error));
    });
    Add(L"Size", 0, 0, [this](const ScriptArguments&) { return SizeOf(m_path); });
    Add(L"Bytes", 0, 0, [this](const ScriptArguments&) { return BytesOf(m_path); });
    Add(L"Delete", 0, 0, [this](const ScriptArguments&) {
        std::error_code error;
        return Variant::Of(fs::remove(m_path, error));
    });
}

}  // namespace veygrid
