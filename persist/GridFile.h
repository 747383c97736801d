// The grid file: one stream that holds the sheet, its properties and its form objects.
#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>

#include "grid/GridProperties.h"
#include "grid/GridStore.h"
#include "grid/Messages.h"
#include "persist/Archive.h"
#include "persist/FormObjectRecord.h"
#include "persist/StoredRect.h"

namespace veygrid {

// The text that a file must hold at its beginning, and the one that this system writes.
inline constexpr std::string_view BannerPrefix = "Veynor Data Grid Control Ver";
inline constexpr std::string_view CurrentBanner = "Veynor Data Grid Control Ver3.0";

inline constexpr std::uint32_t FirstCtrlID = 1001;

// What a grid file holds beside the store. Byte blocks are empty where there is none.
struct GridDocument {
    // That of the file loaded last, until the next save.
    std::string FileBanner{CurrentBanner};
    StockProperties Stock;
    // In creation order, which is the tab order.
    std::list<GuiObjRecord> m_guiObjects;
    std::uint32_t m_nNextCtrlID = FirstCtrlID;
    // A bitmap file less its 14-byte file header.
    std::string BkImageBits;
    // Screen pixels.
    StoredRect SavedWindowRect;
    std::string PrintDevNames;
    std::string PrintDevMode;

    friend bool operator==(const GridDocument&, const GridDocument&) = default;
};

// What saving and loading ask of the control, called in the order in which hosts and windows see
// it. The defaults are those of a control without a window.
class GridFileHost {
  public:
    virtual ~GridFileHost() = default;

    // A modal box with MessageCaption; the text is in code page 936.
    virtual void ShowMessage(std::string_view /*text*/, std::int32_t /*style*/) {}

    virtual bool HasWindow() { return false; }
    // Screen rectangle of the parent window; nothing without a window or without a parent.
    virtual std::optional<StoredRect> ParentWindowRect() { return std::nullopt; }
    // `VeynorGrid_SizeParentWindow` to the parent, posted: left and top, width and height as low
    // and high word. Called only when there is a parent.
    virtual void PostSizeParentWindow(std::uint32_t /*leftTop*/, std::uint32_t /*widthHeight*/) {}

    // The windows of the entries that `m_guiObjects` holds during the call.
    virtual void DestroyFormWindows() {}
    virtual void CreateFormWindows() {}

    virtual void RunQuery(std::int16_t /*getAllRecord*/) {}
};

// Cell texts that get into a file without having been in a map.
class CellTextSource {
  public:
    virtual ~CellTextSource() = default;

    virtual std::size_t Count() const = 0;
    // Writes position and text of each cell, every position once, in the order in which a map
    // would give them out.
    virtual void WriteEntries(ArchiveWriter& archive) const = 0;
};

// Writes the whole stream in the current version and sets `FileBanner` and `SavedWindowRect` to
// what is written. The caller closes the archive. Throws ArchiveError when the sink does.
void WriteGrid(ArchiveWriter& archive, const GridStore& store, GridDocument& document,
               GridFileHost& host);
// The same with these cell texts in place of those of the store.
void WriteGrid(ArchiveWriter& archive, const GridStore& store, const CellTextSource& cells,
               GridDocument& document, GridFileHost& host);

// Reads a stream of any version into what is there: map entries and parameters are added to those
// present, formats and form objects take their place. False when the banner is not that of a grid
// file; the user has then been told, and nothing but `FileBanner` has changed. Throws ArchiveError
// when the stream ends early or is damaged; what was read until then stays. A stream of n bytes
// takes at most 160 n bytes of memory and a fixed amount below one megabyte.
bool ReadGrid(ArchiveReader& archive, GridStore& store, GridDocument& document, GridFileHost& host);

}  // namespace veygrid
