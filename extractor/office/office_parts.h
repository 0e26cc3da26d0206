// Office parts: what word processing, spreadsheet and presentation files (Office Open XML,
// ECMA-376) have in common: a zip container whose parts name each other.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "document/document_builder.h"
#include "extractor/office/zip_parts.h"

namespace norvast::extractor {

struct Relationship {
  std::string id;
  std::string type;    // the last step of its address: "officeDocument", "slide", "footnotes"
  std::string target;  // name of a part
};

struct OfficeParts {
  ZipParts parts;
  std::string mainPart;  // name of the part that holds the text, or the order of its other parts
};

// Returns the parts of an office file that may hold text. Fails with decodingFailed if the file has
// no main part, or if its outermost element is not `root`: "document", "workbook" or
// "presentation".
std::variant<OfficeParts, ReadFailure> readOfficeParts(std::string_view bytes,
                                                       std::string_view root);

// Returns the parts that the part of that name refers to, in the file's order.
std::vector<Relationship> relationshipsOf(const ZipParts& parts, std::string_view name);

// Return the target of the first relationship of that id, or of that type, empty if there is none.
std::string targetOfId(const std::vector<Relationship>& relationships, std::string_view id);
std::string targetOfType(const std::vector<Relationship>& relationships, std::string_view type);

// Takes the document's title and author from the file's properties.
void addOfficeProperties(const ZipParts& parts, DocumentBuilder& document);

}  // namespace norvast::extractor
