// What the reference says of the members in words, read from one text file.
#include "tools/reference/Prose.h"

#include <fstream>
#include <set>
#include <stdexcept>

namespace veygrid::reference {

namespace {

class Reader {
  public:
    explicit Reader(const std::string& path) : m_path(path), m_file(path, std::ios::binary) {
        if (!m_file) {
            throw std::runtime_error(path + ": cannot be read");
        }
    }

    Prose Read() {
        std::string line;
        while (std::getline(m_file, line)) {
            ++m_number;
            Take(line);
        }
        return std::move(m_prose);
    }

  private:
    void Take(const std::string& line) {
        if (line.starts_with("  ")) {
            GoOn(line.substr(2));
        } else if (line.starts_with("[") && line.ends_with("]")) {
            Open(line.substr(1, line.size() - 2));
        } else if (!line.empty() && !line.starts_with("#")) {
            Begin(line);
        }
    }
    void Open(const std::string& name) {
        const auto [place, isNew] = m_prose.try_emplace(name);
        Require(isNew, "two entries " + name);
        m_entry = &place->second;
        m_text = nullptr;
    }
    void Begin(const std::string& line) {
        static const std::set<std::string> Keys{"default", "en", "zh", "example", "pending"};
        const std::size_t mark = line.find(" =");
        Require(m_entry != nullptr && mark != std::string::npos, "no entry or no key: " + line);
        const std::string key = line.substr(0, mark);
        Require(Keys.contains(key), "unknown key " + key);
        const auto [place, isNew] = m_entry->try_emplace(key);
        Require(isNew, "key " + key + " twice");
        m_text = &place->second;
        if (line.size() > mark + 3) {
            GoOn(line.substr(mark + 3));
        }
    }
    void GoOn(const std::string& line) {
        Require(m_text != nullptr, "text outside an entry");
        *m_text += (m_text->empty() ? "" : "\n") + line;
    }
    void Require(bool holds, const std::string& complaint) const {
        if (!holds) {
            throw std::runtime_error(m_path + ":" + std::to_string(m_number) + ": " + complaint);
        }
    }

    std::string m_path;
    std::ifstream m_file;
    int m_number = 0;
    Prose m_prose;
    Words* m_entry = nullptr;
    std::string* m_text = nullptr;
};

}  // namespace

Prose ReadProse(const std::string& path) {
    return Reader(path).Read();
}

}  // namespace veygrid::reference
