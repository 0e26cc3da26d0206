#include "extractor/page_kinds.h"

#include <algorithm>
#include <iterator>

#include "extractor/html_reader.h"
#include "extractor/manual_reader.h"
#include "extractor/notebook_reader.h"
#include "extractor/rtf_reader.h"
#include "extractor/xml_document_reader.h"

namespace norvast {
namespace {

void prepareNothing() {}

constexpr DocumentKind KINDS[] = {
    {"html", readHtml, prepareNothing},     {"xml", readXml, prepareNothing},
    {"rtf", readRtf, prepareNothing},       {"notebook", readNotebook, prepareNothing},
    {"manual", readManual, prepareNothing},
};

}  // namespace

const DocumentKind* pageKind(std::string_view name) {
  const auto* kind = std::find_if(std::begin(KINDS), std::end(KINDS),
                                  [name](const DocumentKind& each) { return each.name == name; });
  return kind == std::end(KINDS) ? nullptr : kind;
}

}  // namespace norvast
