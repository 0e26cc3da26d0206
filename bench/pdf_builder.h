// PDF builder: small PDF documents for measuring.
#pragma once

#include <string>
#include <vector>

namespace norvast {

// A document of these objects, numbered from 1, the first being its catalogue.
std::string pdfOfObjects(const std::vector<std::string>& objects);

// An object of this dictionary (without << >> and its length) and data.
std::string pdfStream(const std::string& dictionary, const std::string& data);

// A document of one page a list of lines, in Helvetica, which is not embedded.
std::string pdfOfPages(const std::vector<std::vector<std::string>>& pages);

// A document of one page whose content is `content`, with Helvetica as /F1.
std::string pdfOfContent(const std::string& content);

}  // namespace norvast
