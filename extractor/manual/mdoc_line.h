// Mdoc line: the macros of mdoc(7) that mark words within a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "extractor/manual/roff_text.h"

namespace norvast::extractor {

class MdocLine {
 public:
  explicit MdocLine(const RoffStrings& strings) : strings_(strings) {}

  static bool isMacro(std::string_view name);

  // What the macro shows with these arguments, macros among them included: "[-a file]" of Op, Fl,
  // a, Ar, file. Begins or ends with ROFF_JOIN where no blank divides it from other lines.
  std::string shown(std::string_view macro, const std::vector<std::string>& arguments);

  // Whether words have blanks between them.
  void setSpaced(bool isSpaced) { isSpaced_ = isSpaced; }

 private:
  void take(const std::string& argument);
  void begin(std::string_view macro);
  void end();
  void add(std::string_view word);
  void close(std::string_view word);

  const RoffStrings& strings_;
  std::string name_;  // of what the page is about
  std::string text_;
  std::string_view macro_;                 // that the next argument belongs to
  std::size_t argumentsOfMacro_ = 0;       // it has had
  std::vector<std::string_view> closing_;  // what ends the line, innermost last
  bool isSpaced_ = true;
  bool joins_ = true;  // the next word follows without a blank
};

}  // namespace norvast::extractor
