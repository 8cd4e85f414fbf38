// A line on the terminal that says what takes so long, and for how many seconds already. It is only shown where
// standard error is a terminal, and is wiped when the work is done. One at a time; it uses SIGALRM.
#pragma once

#include <string>

class Progress {
  public:
    explicit Progress(const std::string& what);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

  private:
    bool shown_;
};

// "12.3 MB": the size of a file for a progress line; empty when it cannot be told.
std::string shownSize(const std::string& path);
