// Properties in a container's bag of named values.
#include "persist/PropertyBag.h"

#include <array>
#include <charconv>
#include <cstring>
#include <utility>

#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

std::string HexOf(const LogFont& font) {
    std::array<unsigned char, sizeof font> bytes;
    std::memcpy(bytes.data(), &font, sizeof font);
    std::string text;
    for (const unsigned char byte : bytes) {
        constexpr std::string_view Digits = "0123456789ABCDEF";
        text += Digits[byte >> 4U];
        text += Digits[byte & 15U];
    }
    return text;
}

std::optional<LogFont> FontOf(std::string_view text) {
    std::array<unsigned char, sizeof(LogFont)> bytes;
    if (text.size() != 2 * bytes.size()) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char* const digits = text.data() + 2 * i;
        if (std::from_chars(digits, digits + 2, bytes[i], 16).ptr != digits + 2) {
            return std::nullopt;
        }
    }
    LogFont font;
    std::memcpy(&font, bytes.data(), sizeof font);
    return font;
}

class BagSaver final : public PropertyExchanger {
  public:
    explicit BagSaver(PropertyBag& bag) : m_bag(bag) {}

    void Version(std::uint32_t current) override {
        m_bag.Write(PersistVersionName, PropertyKind::Long, std::int64_t{current});
    }
    void Bool(std::string_view name, bool& value, bool) override {
        m_bag.Write(name, PropertyKind::Bool, std::int64_t{value});
    }
    void Short(std::string_view name, std::int16_t& value, std::int16_t) override {
        m_bag.Write(name, PropertyKind::Short, std::int64_t{value});
    }
    void Long(std::string_view name, std::int32_t& value, std::int32_t) override {
        m_bag.Write(name, PropertyKind::Long, std::int64_t{value});
    }
    void Color(std::string_view name, std::uint32_t& value, std::uint32_t) override {
        m_bag.Write(name, PropertyKind::Color, std::int64_t{value});
    }
    void String(std::string_view name, std::string& value, const std::string&) override {
        m_bag.Write(name, PropertyKind::String, value);
    }
    void Font(std::string_view name, LogFont& value) override {
        if (value.lfWeight != NoFontWeight) {
            m_bag.Write(name, PropertyKind::String, HexOf(value));
        }
    }

  private:
    PropertyBag& m_bag;
};

std::optional<std::int64_t> NumberOf(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    std::int64_t number = 0;
    const auto [end, error] =
        std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), number);
    const bool whole = error == std::errc() && end == trimmed.data() + trimmed.size();
    return whole ? std::optional(number) : std::nullopt;
}

// The yes or no that a text says as a number.
std::optional<std::int64_t> BoolOf(std::string_view text) {
    const std::string word = UpperCase(Trim(text));
    if (word == "TRUE" || word == "FALSE") {
        return word == "TRUE" ? 1 : 0;
    }
    return NumberOf(word);
}

class BagLoader final : public PropertyExchanger {
  public:
    explicit BagLoader(PropertyBag& bag) : m_bag(bag) {}

    void Version(std::uint32_t) override {}
    void Bool(std::string_view name, bool& value, bool fallback) override {
        const std::optional<std::int64_t> number = Number(name, PropertyKind::Bool, BoolOf);
        value = number ? *number != 0 : fallback;
    }
    void Short(std::string_view name, std::int16_t& value, std::int16_t fallback) override {
        Whole(name, PropertyKind::Short, value, fallback);
    }
    void Long(std::string_view name, std::int32_t& value, std::int32_t fallback) override {
        Whole(name, PropertyKind::Long, value, fallback);
    }
    // A pattern of 32 bits, which may come with a sign.
    void Color(std::string_view name, std::uint32_t& value, std::uint32_t fallback) override {
        const std::optional<std::int64_t> number = Number(name, PropertyKind::Color, NumberOf);
        const bool fits = number && (std::in_range<std::uint32_t>(*number) ||
                                     std::in_range<std::int32_t>(*number));
        value = fits ? static_cast<std::uint32_t>(*number) : fallback;
    }
    void String(std::string_view name, std::string& value, const std::string& fallback) override {
        value = Text(name).value_or(fallback);
    }
    void Font(std::string_view name, LogFont& value) override {
        value = FontOf(Text(name).value_or("")).value_or(AmbientFont);
    }

  private:
    template <class FromText>
    std::optional<std::int64_t> Number(std::string_view name, PropertyKind kind,
                                       FromText fromText) {
        const std::optional<BagValue> stored = m_bag.Read(name, kind);
        if (!stored) {
            return std::nullopt;
        }
        const auto* text = std::get_if<std::string>(&*stored);
        return text != nullptr ? fromText(*text) : std::get<std::int64_t>(*stored);
    }

    template <class Target>
    void Whole(std::string_view name, PropertyKind kind, Target& value, Target fallback) {
        const std::optional<std::int64_t> number = Number(name, kind, NumberOf);
        const bool fits = number && std::in_range<Target>(*number);
        value = fits ? static_cast<Target>(*number) : fallback;
    }

    std::optional<std::string> Text(std::string_view name) {
        const std::optional<BagValue> stored = m_bag.Read(name, PropertyKind::String);
        if (!stored) {
            return std::nullopt;
        }
        const auto* number = std::get_if<std::int64_t>(&*stored);
        return number != nullptr ? std::to_string(*number) : std::get<std::string>(*stored);
    }

    PropertyBag& m_bag;
};

}  // namespace

void SaveToBag(PropertyBag& bag, const StockProperties& stock, const GridProperties& properties) {
    BagSaver saver(bag);
    StockProperties stockCopy = stock;
    GridProperties copy = properties;
    DoPropExchange(saver, stockCopy, copy);
}

void LoadFromBag(PropertyBag& bag, StockProperties& stock, GridProperties& properties) {
    BagLoader loader(bag);
    DoPropExchange(loader, stock, properties);
}

}  // namespace veygrid
