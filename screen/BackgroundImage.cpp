// The picture behind the form: its file, its bytes and its tiles.
#include "screen/BackgroundImage.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "persist/Archive.h"
#include "screen/DibParts.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

constexpr std::size_t FileHeaderBytes = 14;
constexpr std::string_view BitmapMark = "BM";

// Nothing when the file does not open, breaks off or is no bitmap file.
std::optional<std::string> BitmapFileBody(FileSystem& files, std::string_view path) {
    try {
        const std::unique_ptr<ByteSource> file = files.OpenForReading(Utf8FromCodePage936(path));
        if (file == nullptr) {
            return std::nullopt;
        }
        ArchiveReader reader(*file);
        if (!reader.ReadBlock(FileHeaderBytes, "file header").starts_with(BitmapMark)) {
            return std::nullopt;
        }
        return reader.ReadBlock(reader.Left(), "picture");
    } catch (const ArchiveError&) {
        return std::nullopt;
    }
}

std::unique_ptr<SurfaceBitmap> MakeBitmap(Surface& surface, std::string_view block) {
    const std::optional<DibParts> parts = SplitDib(block);
    std::unique_ptr<SurfaceBitmap> bitmap =
        parts ? surface.CreateDIBitmap(parts->header, parts->bits) : nullptr;
    return bitmap != nullptr && bitmap->Width() > 0 && bitmap->Height() > 0 ? std::move(bitmap)
                                                                            : nullptr;
}

// The tiles go as far down as the bounds are high, which is not their bottom when they begin below
// 0; and a size once cut stays cut for all tiles that follow. Both are meant.
void Tile(Surface& surface, const Rect& bounds, const SurfaceBitmap& bitmap) {
    std::int64_t width = bitmap.Width();
    std::int64_t height = bitmap.Height();
    const std::int64_t lowest = std::int64_t{bounds.bottom} - bounds.top;
    for (std::int64_t x = bounds.left; x <= bounds.right; x += bitmap.Width()) {
        for (std::int64_t y = bounds.top; y <= lowest; y += bitmap.Height()) {
            width = std::min(width, bounds.right - x);
            height = std::min(height, bounds.bottom - y);
            if (width <= 0 || height <= 0) {
                return;
            }
            surface.BitBlt({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)},
                           static_cast<std::int32_t>(width), static_cast<std::int32_t>(height),
                           bitmap);
        }
    }
}

}  // namespace

void BackgroundImage::LoadBkImage(FileSystem& files, std::string_view path) {
    std::optional<std::string> bits = path.empty() ? std::string() : BitmapFileBody(files, path);
    if (bits) {
        m_bits = std::move(*bits);
        BitsChanged();
    }
}

void BackgroundImage::DrawBkImage(Surface& surface, const Rect& bounds, Color backColor) {
    if (m_pBkBitmap == nullptr) {
        m_pBkBitmap = MakeBitmap(surface, m_bits);
    }
    if (m_pBkBitmap == nullptr) {
        surface.FillSolidRect(bounds, backColor);
        return;
    }
    Tile(surface, bounds, *m_pBkBitmap);
}

}  // namespace veygrid
