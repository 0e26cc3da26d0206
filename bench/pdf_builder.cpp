#include "bench/pdf_builder.h"

#include <cstdio>

namespace norvast {
namespace {

std::string reference(std::size_t number) { return std::to_string(number) + " 0 R"; }

std::string linesContent(const std::vector<std::string>& lines) {
  std::string content = "BT /F1 11 Tf 14 TL 72 740 Td";
  for (const std::string& line : lines) content += " (" + line + ") Tj T*";
  return content + " ET";
}

// Catalogue, pages and font as objects 1 to 3, then each page and its content.
std::string pdfOfContents(const std::vector<std::string>& contents) {
  constexpr std::size_t FIRST_PAGE = 4;
  std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R >>", "",
                                      "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica "
                                      "/Encoding /WinAnsiEncoding >>"};
  std::string kids;
  for (const std::string& content : contents) {
    const std::size_t page = objects.size() + 1;
    kids += reference(page) + " ";
    objects.push_back(
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] "
        "/Resources << /Font << /F1 3 0 R >> >> /Contents " +
        reference(page + 1) + " >>");
    objects.push_back(pdfStream("", content));
  }
  const std::size_t count = (objects.size() + 1 - FIRST_PAGE) / 2;
  objects[1] = "<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(count) + " >>";
  return pdfOfObjects(objects);
}

}  // namespace

std::string pdfOfObjects(const std::vector<std::string>& objects) {
  std::string file = "%PDF-1.5\n";
  std::string table = "0000000000 65535 f \n";
  for (std::size_t index = 0; index < objects.size(); ++index) {
    char entry[32];
    (void)std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", file.size());
    table += entry;
    file += std::to_string(index + 1) + " 0 obj\n" + objects[index] + "\nendobj\n";
  }
  const std::string size = std::to_string(objects.size() + 1);
  const std::string tableAt = std::to_string(file.size());
  return file + "xref\n0 " + size + "\n" + table + "trailer << /Size " + size +
         " /Root 1 0 R >>\nstartxref\n" + tableAt + "\n%%EOF\n";
}

std::string pdfStream(const std::string& dictionary, const std::string& data) {
  return "<< " + dictionary + " /Length " + std::to_string(data.size()) + " >>\nstream\n" + data +
         "\nendstream";
}

std::string pdfOfPages(const std::vector<std::vector<std::string>>& pages) {
  std::vector<std::string> contents;
  contents.reserve(pages.size());
  for (const auto& lines : pages) contents.push_back(linesContent(lines));
  return pdfOfContents(contents);
}

std::string pdfOfContent(const std::string& content) { return pdfOfContents({content}); }

}  // namespace norvast
