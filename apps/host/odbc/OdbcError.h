// What a driver says of a call that failed.
#pragma once

#include <exception>
#include <string>

namespace veygrid {

class OdbcError : public std::exception {
  public:
    OdbcError(std::u16string state, std::u16string text, bool connectionLost)
        : m_state(std::move(state)), m_text(std::move(text)), m_connectionLost(connectionLost) {}

    // Five characters, such as 42S02.
    const std::u16string& State() const { return m_state; }
    // The driver's own text, for the user.
    const std::u16string& Text() const { return m_text; }
    // Nothing can be done with the connection any more.
    bool ConnectionLost() const { return m_connectionLost; }
    const char* what() const noexcept override { return "a database call failed"; }

  private:
    std::u16string m_state;
    std::u16string m_text;
    bool m_connectionLost;
};

}  // namespace veygrid
