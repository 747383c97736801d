// Comparison of names without regard to case and to blanks around them.
#pragma once

#include <string>
#include <string_view>

#include "valuetext/MultiByte.h"

namespace veygrid {

// A wanted name, trimmed and made capital once, to be held against many stored ones.
class NameMatch {
  public:
    explicit NameMatch(std::string_view wanted) : m_wanted(UpperCase(Trim(wanted))) {}

    bool IsBlank() const { return m_wanted.empty(); }
    bool operator()(std::string_view stored) const {
        const std::string_view name = Trim(stored);
        return name.size() == m_wanted.size() && UpperCase(name) == m_wanted;
    }

  private:
    std::string m_wanted;
};

}  // namespace veygrid
