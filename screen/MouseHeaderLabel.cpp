// Editing the text of a header in its dialog, the only way to it.
#include "screen/MouseHeaderLabel.h"

#include <string>

#include "grid/Messages.h"

namespace veygrid {

namespace {

// The title of a bound column belongs to the dataset, which may refuse it with a message.
bool SetLabel(const MouseParts& parts, LabelType type, std::int32_t index, std::string_view text) {
    if (type == LabelType::RowHeader) {
        parts.store.SetRowHeader(index, text);
        return true;
    }
    if (parts.store.BoundDataset == nullptr) {
        parts.store.SetColHeader(index, text);
        return true;
    }
    const std::int32_t result = parts.store.BoundDataset->SetColCaption(index, text);
    if (result < 0) {
        parts.host.ShowMessage(parts.host.GetMsg(result), StopMessageStyle);
    }
    return result >= 0;
}

}  // namespace

void EditHeaderLabel(const MouseParts& parts, LabelType type, std::int32_t index) {
    if (index == 0) {
        return;
    }
    bool cancel = false;
    parts.host.FireBeginLabelEdit(type, index, cancel);
    if (cancel) {
        return;
    }
    std::string text =
        type == LabelType::RowHeader ? parts.store.RowHeader(index) : parts.store.ColHeader(index);
    if (!parts.host.AskHeaderText(text)) {
        return;
    }
    parts.host.FireEndLabelEdit(type, index, text, cancel);
    if (!cancel && SetLabel(parts, type, index, text)) {
        parts.store.Watcher().InvalidateControl();
    }
}

}  // namespace veygrid
