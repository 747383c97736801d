// A question to the user that is under way, while messages go on.
#pragma once

namespace veygrid {

// Holds the flag up while it lives.
class Asking {
  public:
    explicit Asking(bool& flag) : m_flag(flag) { flag = true; }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
    ~Asking() { m_flag = false; }

  private:
    bool& m_flag;
};

}  // namespace veygrid
