// What each command is asked to do.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "grid/CellPos.h"
#include "grid/CellRange.h"
#include "grid/GridStore.h"
#include "platform/Picture.h"

namespace veygrid {

// File names and texts are in UTF-8.

struct InfoOptions {
    std::string file;
    bool json = false;
};

enum class CellForm { Text, Csv, Tsv, Json, Html };

struct CellsOptions {
    std::string file;
    std::optional<CellRange> range;  // nothing: all that holds a text
    bool shown = false;
    bool header = true;
    CellForm form = CellForm::Text;
    std::string output;  // empty: the standard output
};

enum class TextEncoding { Detect, Utf8, Gbk };

struct ImportOptions {
    std::string file;
    std::string output;
    // By column; nothing where the type is to be guessed, and so for columns behind the last.
    std::vector<std::optional<ColumnType>> types;
    char delimiter = ',';
    bool header = true;
    TextEncoding encoding = TextEncoding::Detect;
    bool replace = false;
    bool quiet = false;
};

struct CheckOptions {
    std::string file;
};

struct DiffOptions {
    std::string first;
    std::string second;
    bool brief = false;
    bool json = false;
};

struct SetOptions {
    std::string file;
    std::vector<std::pair<CellPos, std::string>> cells;
    std::string output;  // empty: back into the file
    bool replace = false;
};

struct GetOptions {
    std::string file;
    std::vector<CellPos> cells;
    bool shown = false;
};

struct RenderOptions {
    std::string file;
    std::string output;  // empty: the standard output
    PictureForm form = PictureForm::Png;
    std::optional<CellRange> range;  // nothing: all that has been in use
    double scale = 1;
};

// A text that answers the call by itself: help or version.
struct AnswerText {
    std::string text;
};

using Command = std::variant<AnswerText, InfoOptions, CellsOptions, ImportOptions, CheckOptions,
                             DiffOptions, SetOptions, GetOptions, RenderOptions>;

}  // namespace veygrid
