// The command line: its declaration, its help, and what it asks for.
#include "apps/grd/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>

#include "apps/grd/CellAddress.h"
#include "apps/grd/Trouble.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

constexpr std::string_view Version = "grd 0.1.0";

constexpr const char* MainFooter = R"(Examples:
  grd import sales.csv -o sales.grd       a grid file from a table with a header line
  grd info sales.grd                      what the file holds
  grd cells sales.grd --as csv            its cells, for other programs
  grd set sales.grd R2C3=12.50            write a cell
  grd diff old.grd new.grd                what changed
  grd render sales.grd -o sales.png       a picture of the sheet

Exit codes: 0 success; 1 trouble with a file, or the files of diff differ; 2 wrong arguments, or
trouble with a file of diff.
'grd COMMAND --help' tells more about one command.)";

constexpr const char* InfoFooter = R"(Properties marked with * do not have their default value.

Examples:
  grd info sales.grd
  grd info sales.grd --json | jq .counts.cells)";

constexpr const char* CellsFooter =
    R"(Without --range the sheet is written from its first cell to the last row and the last column that
hold a text; json writes only the cells that hold one. A first line with the column headers stands
in front when the sheet has headers of its own.

Examples:
  grd cells sales.grd                          aligned columns, to look at
  grd cells sales.grd --range R1C1:R20C5       a block; R3:R7 are rows, C2 is a column
  grd cells sales.grd --shown --as html -o sales.html
  grd cells sales.grd --as csv --no-header | wc -l)";

constexpr const char* ImportFooter =
    R"(The names of the header line become the columns' names and headers. Column types are guessed from
the data where --types leaves them open: a column of numbers becomes number, of dates date, any
other string. The grid file holds its text in code page 936 (GBK); the import fails and names the
places when a character is not part of it, unless --replace is given.

Examples:
  grd import sales.csv -o sales.grd
  grd import sales.tsv -o sales.grd --types "string,number,date"
  grd import old.csv -o old.grd --encoding gbk --no-header
  grd import names.csv -o names.grd --replace)";

constexpr const char* CheckFooter =
    R"(Reads the whole file. A file in order is answered by one line that begins with its name and "ok";
otherwise the first fault is named with its byte position, counted from 0, and the exit code is 1.

Examples:
  grd check sales.grd
  for f in *.grd; do grd check "$f" || echo "look at $f"; done)";

constexpr const char* DiffFooter =
    R"(Compares properties, cells, formats, sizes, headers, names, parameters, form objects, the picture
and the printer settings. One line tells one difference, first file -> second file.

Exit codes: 0 the files say the same; 1 they differ; 2 trouble.

Examples:
  grd diff old.grd new.grd
  grd diff --brief old.grd new.grd && echo unchanged
  grd diff --json old.grd new.grd | jq length)";

constexpr const char* SetFooter =
    R"(The file is replaced only when all of the new one has been written. An empty text empties the cell.

Examples:
  grd set sales.grd R2C3=12.50 "R2C4=two words"
  grd set template.grd R1C1=2024-05-01 -o may.grd)";

constexpr const char* GetFooter =
    R"(Each text stands on a line of its own, in the order of the arguments.

Examples:
  grd get sales.grd R2C3
  grd get sales.grd R2C3 R2C4 --shown)";

constexpr const char* RenderFooter =
    R"(The picture shows the sheet as the control prints it: headers, grid lines, fonts, colours and shown
texts, without a selection. Without --range it begins at the first cell and ends with the last row
and column that have been in use. A side has at most 32767 pixels (19200 in a pdf).

Examples:
  grd render sales.grd -o sales.png
  grd render sales.grd -o page.pdf --range R1C1:R40C8
  grd render sales.grd -o large.png --range R1:R20 --scale 2
  grd render sales.grd -o - --format svg | gzip > sales.svgz)";

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

// A value by its name, for options with a fixed choice.
template <class Value, std::size_t Count>
Value ByName(const std::array<std::pair<std::string_view, Value>, Count>& names,
             const std::string& option, const std::string& given) {
    std::string choice;
    for (const auto& [name, value] : names) {
        if (name == given) {
            return value;
        }
        choice += (choice.empty() ? "" : ", ") + std::string(name);
    }
    throw UsageTrouble(option + ": " + Quoted(given) + " is none of " + choice);
}

constexpr std::array<std::pair<std::string_view, CellForm>, 5> CellForms{{
    {"text", CellForm::Text},
    {"csv", CellForm::Csv},
    {"tsv", CellForm::Tsv},
    {"json", CellForm::Json},
    {"html", CellForm::Html},
}};

constexpr std::array<std::pair<std::string_view, TextEncoding>, 2> Encodings{{
    {"utf-8", TextEncoding::Utf8},
    {"gbk", TextEncoding::Gbk},
}};

constexpr std::array<std::pair<std::string_view, std::optional<ColumnType>>, 5> ColumnTypes{{
    {"string", ColumnType::String},
    {"number", ColumnType::Number},
    {"date", ColumnType::Date},
    {"unknown", ColumnType::Unknown},
    {"auto", std::nullopt},
}};

constexpr std::array<std::pair<std::string_view, PictureForm>, 3> PictureForms{{
    {"png", PictureForm::Png},
    {"pdf", PictureForm::Pdf},
    {"svg", PictureForm::Svg},
}};

std::vector<std::optional<ColumnType>> TypesFromText(const std::string& text) {
    std::vector<std::optional<ColumnType>> types;
    for (const std::string& given : CLI::detail::split(text, ',')) {
        std::string name = CLI::detail::trim_copy(given);
        types.push_back(ByName(ColumnTypes, "--types", name.empty() ? "auto" : name));
    }
    return types;
}

bool EndsWithNoCase(const std::string& text, std::string_view end) {
    return text.size() >= end.size() &&
           CLI::detail::to_lower(text.substr(text.size() - end.size())) == end;
}

CellPos CellFromText(const std::string& text) {
    const auto cell = ParseCell(text);
    if (!cell) {
        throw UsageTrouble(Quoted(text) + " is no cell; write R2C3 for row 2, column 3");
    }
    return *cell;
}

CellRange RangeFromText(const std::string& text) {
    const auto range = ParseRange(text);
    if (!range) {
        throw UsageTrouble("--range: " + Quoted(text) +
                           " is no range; write R1C1:R9C4, R3:R7 or C2");
    }
    return *range;
}

// The form that the name of a file ends in.
PictureForm FormOfName(const std::string& name) {
    for (const auto& [ending, form] : PictureForms) {
        if (EndsWithNoCase(name, "." + std::string(ending))) {
            return form;
        }
    }
    throw UsageTrouble("--output: " + Quoted(name) +
                       " ends in none of .png, .pdf, .svg; --format tells which it is to be");
}

std::pair<CellPos, std::string> AssignmentFromText(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        throw UsageTrouble(Quoted(text) + " assigns nothing; write R2C3=text");
    }
    const CellPos cell = CellFromText(text.substr(0, equals));
    if (!IsUtf8(text)) {
        throw UsageTrouble("the text for " + CellName(cell) + " is not UTF-8");
    }
    return {cell, text.substr(equals + 1)};
}

// Declares one command, fills its options while parsing, and gives them when it was called.
class CommandDeclaration {
  public:
    virtual ~CommandDeclaration() = default;
    // Throws UsageTrouble on values that make no sense.
    virtual Command Finish() = 0;

    CLI::App* App = nullptr;

  protected:
    CommandDeclaration(CLI::App& main, const std::string& name, const std::string& purpose,
                       const char* footer)
        : App(main.add_subcommand(name, purpose)) {
        App->footer(footer);
        App->group("Commands");
    }
    void AddFile(std::string& target, const std::string& purpose) const {
        App->add_option("FILE", target, purpose)->required()->type_name("");
    }
};

class InfoDeclaration : public CommandDeclaration {
  public:
    explicit InfoDeclaration(CLI::App& main)
        : CommandDeclaration(main, "info", "Tell what a grid file holds", InfoFooter) {
        AddFile(m_options.file, "The grid file");
        App->add_flag("--json", m_options.json, "Write one JSON object");
    }
    Command Finish() override { return m_options; }

  private:
    InfoOptions m_options;
};

class CellsDeclaration : public CommandDeclaration {
  public:
    explicit CellsDeclaration(CLI::App& main)
        : CommandDeclaration(main, "cells", "Write the cells of a grid file", CellsFooter) {
        AddFile(m_options.file, "The grid file");
        App->add_option("--range", m_range, "R1C1:R9C4, R3:R7 or C2 (default: all that holds text)")
            ->type_name("RANGE");
        App->add_flag("--shown", m_options.shown, "Write texts as their show formats show them");
        App->add_option("--as", m_form, "text, csv, tsv, json or html (default: text)")
            ->type_name("FORM");
        App->add_flag("--no-header", m_noHeader, "Leave the line of headers off");
        App->add_option("-o,--output", m_options.output,
                        "File to write (default: the standard output)")
            ->type_name("OUT");
    }
    Command Finish() override {
        m_options.header = !m_noHeader;
        m_options.form = ByName(CellForms, "--as", m_form);
        if (App->count("--range") != 0) {
            m_options.range = RangeFromText(m_range);
        }
        return m_options;
    }

  private:
    CellsOptions m_options;
    std::string m_range;
    std::string m_form = "text";
    bool m_noHeader = false;
};

class ImportDeclaration : public CommandDeclaration {
  public:
    explicit ImportDeclaration(CLI::App& main)
        : CommandDeclaration(main, "import", "Make a grid file from comma- or tab-separated text",
                             ImportFooter) {
        App->add_option("DATA", m_options.file, "The text; .tsv and .tab are split by tabs")
            ->required()
            ->type_name("");
        App->add_option("-o,--output", m_options.output, "The grid file to write")
            ->required()
            ->type_name("FILE");
        App->add_option("--types", m_types, "By column: string, number, date, unknown or auto")
            ->type_name("T,T,...");
        App->add_flag("--no-header", m_noHeader, "The first line is data");
        App->add_option("--encoding", m_encoding, "utf-8 or gbk (default: found out from the text)")
            ->type_name("NAME");
        App->add_flag("--replace", m_options.replace,
                      "Write ? for characters that code page 936 does not have");
        App->add_flag("-q,--quiet", m_options.quiet, "Write no summary");
    }
    Command Finish() override {
        m_options.header = !m_noHeader;
        const std::string& file = m_options.file;
        m_options.delimiter =
            EndsWithNoCase(file, ".tsv") || EndsWithNoCase(file, ".tab") ? '\t' : ',';
        if (App->count("--types") != 0) {
            m_options.types = TypesFromText(m_types);
        }
        if (App->count("--encoding") != 0) {
            m_options.encoding = ByName(Encodings, "--encoding", m_encoding);
        }
        return m_options;
    }

  private:
    ImportOptions m_options;
    std::string m_types;
    std::string m_encoding;
    bool m_noHeader = false;
};

class CheckDeclaration : public CommandDeclaration {
  public:
    explicit CheckDeclaration(CLI::App& main)
        : CommandDeclaration(main, "check", "Look a grid file through for faults", CheckFooter) {
        AddFile(m_options.file, "The grid file");
    }
    Command Finish() override { return m_options; }

  private:
    CheckOptions m_options;
};

class DiffDeclaration : public CommandDeclaration {
  public:
    explicit DiffDeclaration(CLI::App& main)
        : CommandDeclaration(main, "diff", "Tell how two grid files differ", DiffFooter) {
        App->add_option("FIRST", m_options.first, "A grid file")->required()->type_name("");
        App->add_option("SECOND", m_options.second, "Another")->required()->type_name("");
        App->add_flag("--brief", m_options.brief, "Tell only whether they differ");
        App->add_flag("--json", m_options.json, "Write a JSON array of the differences");
    }
    Command Finish() override {
        if (m_options.brief && m_options.json) {
            throw UsageTrouble("--brief and --json do not go together");
        }
        return m_options;
    }

  private:
    DiffOptions m_options;
};

class SetDeclaration : public CommandDeclaration {
  public:
    explicit SetDeclaration(CLI::App& main)
        : CommandDeclaration(main, "set", "Write texts into cells of a grid file", SetFooter) {
        AddFile(m_options.file, "The grid file");
        App->add_option("CELL=TEXT", m_cells, "As R2C3=text")->required()->type_name("");
        App->add_option("-o,--output", m_options.output,
                        "File to write (default: the grid file itself)")
            ->type_name("OUT");
        App->add_flag("--replace", m_options.replace,
                      "Write ? for characters that code page 936 does not have");
    }
    Command Finish() override {
        std::transform(m_cells.begin(), m_cells.end(), std::back_inserter(m_options.cells),
                       AssignmentFromText);
        return m_options;
    }

  private:
    SetOptions m_options;
    std::vector<std::string> m_cells;
};

class GetDeclaration : public CommandDeclaration {
  public:
    explicit GetDeclaration(CLI::App& main)
        : CommandDeclaration(main, "get", "Write the texts of cells", GetFooter) {
        AddFile(m_options.file, "The grid file");
        App->add_option("CELL", m_cells, "As R2C3")->required()->type_name("");
        App->add_flag("--shown", m_options.shown, "Write texts as their show formats show them");
    }
    Command Finish() override {
        std::transform(m_cells.begin(), m_cells.end(), std::back_inserter(m_options.cells),
                       CellFromText);
        return m_options;
    }

  private:
    GetOptions m_options;
    std::vector<std::string> m_cells;
};

class RenderDeclaration : public CommandDeclaration {
  public:
    explicit RenderDeclaration(CLI::App& main)
        : CommandDeclaration(main, "render", "Draw the sheet as a picture or a page",
                             RenderFooter) {
        AddFile(m_options.file, "The grid file");
        App->add_option("-o,--output", m_output, "File to write; - is the standard output")
            ->required()
            ->type_name("OUT");
        App->add_option("--format", m_form, "png, pdf or svg (default: what OUT ends in)")
            ->type_name("FORM");
        App->add_option("--range", m_range, "R1C1:R9C4, R3:R7 or C2 (default: all that is in use)")
            ->type_name("RANGE");
        App->add_option("--scale", m_options.scale, "Enlarge it, 0.25 to 8 times (default: 1)")
            ->type_name("N");
    }
    Command Finish() override {
        const bool named = App->count("--format") != 0;
        const bool toStandardOutput = m_output == "-";
        if (toStandardOutput && !named) {
            throw UsageTrouble("--output: the standard output has no name to tell the --format by");
        }
        m_options.form = named ? ByName(PictureForms, "--format", m_form) : FormOfName(m_output);
        m_options.output = toStandardOutput ? "" : m_output;
        if (App->count("--range") != 0) {
            m_options.range = RangeFromText(m_range);
        }
        if (!(m_options.scale >= LeastScale && m_options.scale <= MostScale)) {
            throw UsageTrouble("--scale: not between 0.25 and 8");
        }
        return m_options;
    }

  private:
    static constexpr double LeastScale = 0.25;
    static constexpr double MostScale = 8;

    RenderOptions m_options;
    std::string m_output;
    std::string m_form;
    std::string m_range;
};

// The words of the help that the library has other ones for.
constexpr std::array<std::pair<const char*, const char*>, 3> Labels{{
    {"Positionals", "Arguments"},
    {"SUBCOMMAND", "COMMAND"},
    {"REQUIRED", "(needed)"},
}};

// The whole command line.
class Declaration {
  public:
    Declaration() {
        m_main.name("grd");
        m_main.allow_windows_style_options(false);
        m_main.set_version_flag("--version", std::string(Version), "Write the version and end");
        m_main.set_help_flag("-h,--help", "Write this text and end");
        m_main.require_subcommand(0, 1);
        m_main.footer(MainFooter);
        m_main.get_formatter()->column_width(30);
        for (const auto& [label, word] : Labels) {
            m_main.get_formatter()->label(label, word);
        }
        Add<InfoDeclaration>();
        Add<CellsDeclaration>();
        Add<ImportDeclaration>();
        Add<CheckDeclaration>();
        Add<DiffDeclaration>();
        Add<SetDeclaration>();
        Add<GetDeclaration>();
        Add<RenderDeclaration>();
    }

    Command Parse(std::vector<std::string> arguments) {
        std::reverse(arguments.begin(), arguments.end());
        m_main.parse(std::move(arguments));
        for (const auto& declared : m_commands) {
            if (declared->App->parsed()) {
                return Finish(*declared);
            }
        }
        throw UsageTrouble("a command is needed: " + Names() + "; see 'grd --help'");
    }

    std::string HelpText() const {
        return CalledApp().help(&CalledApp() == &m_main ? "" : m_main.get_name());
    }

    // What is wrong with words that no declaration takes.
    std::string ExtraWord() const {
        const CLI::App& called = CalledApp();
        const auto words = called.remaining(true);
        const std::string word = words.empty() ? "" : words.front();
        if (!word.empty() && word.front() == '-') {
            return "there is no option " + word;
        }
        return &called == &m_main ? Quoted(word) + " is no command, which are " + Names()
                                  : Quoted(word) + " is one argument too many";
    }

    // The words to put in front of and behind a message on what was called.
    std::string Complaint(std::string what) const {
        const CLI::App& called = CalledApp();
        const bool main = &called == &m_main;
        std::replace(what.begin(), what.end(), '\n', ' ');
        return (main ? "" : called.get_name() + ": ") + what + "; see 'grd " +
               (main ? "" : called.get_name() + " ") + "--help'";
    }

  private:
    template <class Declared>
    void Add() {
        m_commands.push_back(std::make_unique<Declared>(m_main));
    }

    Command Finish(CommandDeclaration& declared) const {
        try {
            return declared.Finish();
        } catch (const UsageTrouble& trouble) {
            throw UsageTrouble(Complaint(trouble.what()));
        }
    }

    const CLI::App& CalledApp() const {
        const auto called = m_main.get_subcommands();
        return called.empty() ? m_main : *called.front();
    }

    std::string Names() const {
        std::string names;
        for (const auto& declared : m_commands) {
            names += (names.empty() ? "" : ", ") + declared->App->get_name();
        }
        return names;
    }

    CLI::App m_main{"Reads, writes and compares grid files (.grd)."};
    std::vector<std::unique_ptr<CommandDeclaration>> m_commands;
};

}  // namespace

Command ParseArguments(const std::vector<std::string>& arguments) {
    Declaration declaration;
    std::vector<std::string> words = arguments;
    if (!words.empty() && words.front() == "help") {
        words.erase(words.begin());
        words.resize(std::min<std::size_t>(words.size(), 1));
        words.emplace_back("--help");
    }
    try {
        return declaration.Parse(std::move(words));
    } catch (const CLI::CallForHelp&) {
        return AnswerText{declaration.HelpText()};
    } catch (const CLI::CallForVersion&) {
        return AnswerText{std::string(Version) + "\n"};
    } catch (const CLI::ExtrasError&) {
        throw UsageTrouble(declaration.Complaint(declaration.ExtraWord()));
    } catch (const CLI::ParseError& error) {
        throw UsageTrouble(declaration.Complaint(error.what()));
    }
}

}  // namespace veygrid
