// Roff lines: the lines of a roff text that are carried out, in their order.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "extractor/manual/roff_text.h"

namespace norvast::extractor {

struct RoffLine {
  std::string request;  // or macro, as "SH"; empty for a line of text
  std::string rest;     // the line behind it, its escape sequences as they stand

  // Whether a section of a manual begins with it, which nothing within another goes over.
  bool isSection() const {
    return request == "SH" || request == "SS" || request == "Sh" || request == "Ss";
  }
};

class RoffLines {
 public:
  // `text` must outlive it.
  explicit RoffLines(std::string_view text) : rest_(text) {}

  // The next line, without comments, definitions, and what is meant for typesetters only; what
  // stands behind a condition comes as a line of its own. Nothing at the end.
  std::optional<RoffLine> next();

  // The next line as it stands, for texts within that have rules of their own.
  std::optional<std::string_view> nextRaw();

  // True for a macro of the text's own that prints what it is given.
  bool printsArguments(std::string_view macro) const { return printing_.contains(macro); }

  const RoffStrings& strings() const { return strings_; }

 private:
  std::string joinedLine();
  void define(const RoffLine& line);
  void skipDefinition(const RoffLine& line);
  std::optional<std::string> behindCondition(const RoffLine& line);
  std::optional<std::string> behindElse(const RoffLine& line);
  bool holds(std::string_view condition) const;
  void skipBranch(std::string_view line);

  std::string_view rest_;
  std::optional<std::string> pending_;  // a line behind a condition
  std::vector<bool> branches_;          // whether the first of each two was taken
  std::set<std::string, std::less<>> printing_;
  RoffStrings strings_;
};

// The words of a line, of which those in quotation marks are one, escape sequences as they stand.
std::vector<std::string> roffArguments(std::string_view rest);

}  // namespace norvast::extractor
