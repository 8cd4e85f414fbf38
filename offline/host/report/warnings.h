// The warnings that the host has printed: on stderr while echo is on, and kept for whoever asks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Offline {

class Warnings {
  public:
    // Keeps the text and prints it as `kelmo: warning: TEXT`. So that a script that warns without end
    // does not fill the memory, only the first KEPT texts are kept; all are counted.
    void add(const char* text);
    void clear();

    const std::vector<std::string>& texts() const { return kept; }
    std::uint64_t count() const { return added; }

    bool echo = true;

    static constexpr std::size_t KEPT = 10000;

  private:
    std::vector<std::string> kept;
    std::uint64_t added = 0;
};

}  // namespace Offline
