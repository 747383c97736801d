// Makes the module's cursor and bitmap files from their text; runs on the machine that builds.
// usage: MakePictures TEXT FOLDER   (the files are FOLDER/NUMBER.cur and FOLDER/NUMBER.bmp)
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

[[noreturn]] void Fail(const std::string& why) {
    std::cerr << "MakePictures: " << why << '\n';
    std::exit(1);
}

// Little-endian.
class Bytes {
  public:
    Bytes& U8(unsigned value) {
        m_bytes += static_cast<char>(value);
        return *this;
    }
    Bytes& U16(unsigned value) { return U8(value & 0xFF).U8(value >> 8U & 0xFF); }
    Bytes& U32(unsigned value) { return U16(value & 0xFFFF).U16(value >> 16U); }
    // Rows stand upside down.
    template <class Put>
    Bytes& FromBelow(const Rows& rows, Put put) {
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
            put(*this, *row);
        }
        return *this;
    }
    Bytes& BitmapHeader(unsigned width, unsigned height, unsigned bits) {
        U32(40).U32(width).U32(height).U16(1).U16(bits);
        return U32(0).U32(0).U32(0).U32(0).U32(0).U32(0);
    }
    void Save(const std::string& path) const {
        std::ofstream file(path, std::ios::binary);
        if (!file.write(m_bytes.data(), static_cast<std::streamsize>(m_bytes.size())).flush()) {
            Fail("cannot write " + path);
        }
    }

  private:
    std::string m_bytes;
};

constexpr unsigned CursorSize = 32;

// One bit for each pixel that is `kind`.
void PutMask(Bytes& bytes, const Rows& rows, char kind) {
    bytes.FromBelow(rows, [kind](Bytes& target, const std::string& row) {
        for (std::size_t x = 0; x < row.size(); x += 8) {
            unsigned byte = 0;
            for (std::size_t i = 0; i < 8; ++i) {
                byte = byte << 1U | (row[x + i] == kind ? 1U : 0U);
            }
            target.U8(byte);
        }
    });
}

Bytes CursorFile(unsigned x, unsigned y, const Rows& rows) {
    // Header, two colours and two masks.
    constexpr unsigned Size = 40 + 8 + 2 * CursorSize * CursorSize / 8;
    constexpr unsigned Start = 22;
    Bytes file;
    file.U16(0).U16(2).U16(1);
    file.U8(CursorSize).U8(CursorSize).U8(2).U8(0).U16(x).U16(y);
    file.U32(Size).U32(Start);
    // Two masks in one bitmap: what is white, and what is see-through.
    file.BitmapHeader(CursorSize, 2 * CursorSize, 1).U32(0).U32(0xFFFFFF);
    PutMask(file, rows, 'o');
    PutMask(file, rows, '.');
    return file;
}

Bytes BitmapFile(unsigned width, unsigned height, const Rows& rows) {
    constexpr unsigned Colors[16] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                                     0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                                     0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    constexpr unsigned Start = 14 + 40 + 4 * 16;
    const unsigned line = (width * 4 + 31) / 32 * 4;
    Bytes file;
    file.U8('B').U8('M').U32(Start + line * height).U32(0).U32(Start);
    file.BitmapHeader(width, height, 4);
    for (const unsigned color : Colors) {
        file.U32(color);
    }
    file.FromBelow(rows, [line](Bytes& target, std::string row) {
        row.resize(std::size_t{line} * 2, '0');
        for (std::size_t x = 0; x < row.size(); x += 2) {
            target.U8(static_cast<unsigned>(std::stoul(row.substr(x, 2), nullptr, 16)));
        }
    });
    return file;
}

Rows ReadRows(std::istream& text, unsigned id, unsigned width, unsigned height,
              const char* allowed) {
    Rows rows(height);
    for (std::string& row : rows) {
        std::getline(text, row);
        if (row.size() != width || row.find_first_not_of(allowed) != std::string::npos) {
            Fail("picture " + std::to_string(id) + ": a wrong row: " + row);
        }
    }
    return rows;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        Fail("usage: MakePictures TEXT FOLDER");
    }
    std::ifstream text(arguments[1]);
    std::string line;
    while (std::getline(text, line)) {
        std::istringstream words(line);
        std::string kind;
        unsigned id = 0;
        unsigned x = 0;
        unsigned y = 0;
        if (!(words >> kind) || kind.front() == '#') {
            continue;
        }
        if (!(words >> id >> x >> y) || (kind != "cursor" && kind != "bitmap")) {
            Fail("unexpected line: " + line);
        }
        const std::string path = std::string(arguments[2]) + "/" + std::to_string(id);
        if (kind == "cursor") {
            CursorFile(x, y, ReadRows(text, id, CursorSize, CursorSize, "#o.")).Save(path + ".cur");
        } else {
            BitmapFile(x, y, ReadRows(text, id, x, y, "0123456789ABCDEF")).Save(path + ".bmp");
        }
    }
    return 0;
}
