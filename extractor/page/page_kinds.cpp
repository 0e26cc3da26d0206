#include "extractor/page/page_kinds.h"

#include "extractor/manual/manual_reader.h"
#include "extractor/markup/html_reader.h"
#include "extractor/markup/xml_document_reader.h"
#include "extractor/page/notebook_reader.h"
#include "extractor/page/rtf_reader.h"

namespace norvast::extractor {
namespace {

constexpr DocumentKind KINDS[] = {
    {"html", readHtml},         {"xml", readXml},       {"rtf", readRtf},
    {"notebook", readNotebook}, {"manual", readManual},
};

}  // namespace

const DocumentKind* pageKind(std::string_view name) { return kindNamed(KINDS, name); }

}  // namespace norvast::extractor
