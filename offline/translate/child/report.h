// What the translation tells about itself: JSON Lines, each with an "event", written at once.
#pragma once

#include <string>
#include <string_view>

namespace Translation {

class Report {
  public:
    // `descriptor` -1: nothing is written.
    explicit Report(int descriptor) : descriptor_(descriptor) {}

    // One line: Report::Line(report, "renamed").text("from", a).text("to", b); it is written at the end of
    // the statement.
    class Line {
      public:
        Line(Report& report, const char* event);
        Line(const Line&) = delete;
        Line& operator=(const Line&) = delete;
        ~Line();

        Line& text(const char* key, const std::string& value);
        Line& integer(const char* key, long long value);
        Line& number(const char* key, double value);
        Line& nothing(const char* key);  // null

      private:
        void key(const char* name);

        Report& report_;
        std::string line_;
    };

  private:
    void write(std::string_view line);

    int descriptor_;
};

}  // namespace Translation
