#include "extractor/markup/html_reader.h"

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "document/reading_bounds.h"
#include "document/table_row.h"
#include "extractor/markup/html_elements.h"
#include "text/ascii.h"
#include "text/encoding.h"
#include "text/utf8.h"

namespace norvast::extractor {
namespace {

using Kind = DocumentBlock::Kind;

// Where a page says its encoding, if it does (HTML Living Standard, 13.2.3.2).
constexpr std::size_t PRESCAN_BYTES = 1024;

// A paragraph of which links make up this share leads elsewhere instead of saying something.
constexpr std::size_t LINK_PERCENT = 80;

// A longer one is a paragraph in a column, not the cell of a table.
constexpr std::size_t MOST_CELL_BYTES = 300;

std::string_view view(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

// An attribute's value; empty when there is none.
std::string_view attribute(const xmlChar** attributes, std::string_view name) {
  for (; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
    if (view(attributes[0]) == name) return view(attributes[1]);
  }
  return {};
}

bool hasAttribute(const xmlChar** attributes, std::string_view name) {
  for (; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
    if (view(attributes[0]) == name) return true;
  }
  return false;
}

bool isHiddenByStyle(const xmlChar** attributes) {
  std::string style = asciiLowerCase(attribute(attributes, "style"));
  std::erase(style, ' ');
  return style.find("display:none") != std::string::npos ||
         style.find("visibility:hidden") != std::string::npos;
}

// By the part that it plays, or by the name that its author gave it.
bool isAsideByName(const xmlChar** attributes) {
  constexpr std::string_view ROLES[] = {"navigation", "banner", "contentinfo", "search"};
  constexpr std::string_view NAMES[] = {"nav",         "navbar",     "navigation", "menu",
                                        "navheader",   "footer",     "breadcrumb", "breadcrumbs",
                                        "sidebar",     "navfooter",  "toc",        "cookie-banner",
                                        "site-header", "site-footer"};
  const auto isOneOf = [](const auto& names, std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
  };
  return isOneOf(ROLES, attribute(attributes, "role")) ||
         isOneOf(NAMES, asciiLowerCase(attribute(attributes, "class"))) ||
         isOneOf(NAMES, asciiLowerCase(attribute(attributes, "id")));
}

// The page comes as a row of events: the start of an element with its attributes, text, the end of
// an element. The parser has closed what the author left open, but ends may come for elements that
// never started; these are passed over. A paragraph ends wherever an element that is no part of a
// line starts or ends, so that blocks need no names of their own here:
//
//   <td>Total<br>net</td><td>12 <b>EUR</b></td>   two cells, "Total\nnet" and "12 EUR"
//   <nav><a href="/">Home</a></nav>               an aside: it says nothing of this page
//   <p><a href="1">One</a> <a href="2">Two</a>    an aside as well: nothing but links
// Takes what libxml2's parser finds, for a document of its own.
class HtmlText {
 public:
  explicit HtmlText(std::size_t limitCharacters) : page_({}, limitCharacters) {}

  void start(const xmlChar* tag, const xmlChar** attributes) {
    const std::string_view name = view(tag);
    Open open{tag, htmlElement(name), false, false};
    if (name == "meta" && asciiLowerCase(attribute(attributes, "name")) == "author") {
      page_.setAuthor(attribute(attributes, "content"));
    }
    open.isHidden = open.element == HtmlElement::hidden || hasAttribute(attributes, "hidden") ||
                    isHiddenByStyle(attributes) || attribute(attributes, "role") == "doc-backlink";
    open.isAside = open.element == HtmlElement::aside || isAsideByName(attributes);
    if (isWholePage(name)) open.isAside = false;
    begin(open.element);
    count(open, 1);
    open_.push_back(open);
    isTooDeep_ = isTooDeep_ || open_.size() > MOST_HTML_DEPTH;
  }

  void end(const xmlChar* tag) {
    const auto isIt = [tag](const Open& open) { return open.tag == tag; };
    if (std::none_of(open_.rbegin(), open_.rend(), isIt)) return;
    for (bool isLast = false; !isLast;) {
      const Open open = open_.back();
      isLast = isIt(open);
      finish(open.element);
      count(open, -1);
      open_.pop_back();
    }
  }

  void text(std::string_view text) {
    if (hidden_ > 0) return;
    if (titles_ > 0) {
      title_ += text;
    } else if (preformatted_ > 0) {
      text_ += text;
    } else {
      const std::size_t before = text_.size();
      appendRunning(text_, text);
      if (links_ > 0) linkBytes_ += text_.size() - before;
    }
  }

  bool isTooDeep() const { return isTooDeep_; }
  bool isFull() const { return page_.isFull(); }

  ReadDocument take() {
    flush();
    row_.finish(page_);
    page_.setTitle(title_);
    return page_.take();
  }

 private:
  struct Open {
    const xmlChar* tag;  // the parser's, one for each name
    HtmlElement element;
    bool isHidden;
    bool isAside;
  };

  // Some put all of a page into one element with the name of its menu.
  static bool isWholePage(std::string_view name) {
    return name == "html" || name == "body" || name == "main" || name == "article";
  }

  void count(const Open& open, int step) {
    hidden_ += open.isHidden ? step : 0;
    asides_ += open.isAside ? step : 0;
    links_ += open.element == HtmlElement::link ? step : 0;
    cells_ += open.element == HtmlElement::cell ? step : 0;
    titles_ += open.element == HtmlElement::title ? step : 0;
    preformatted_ += open.element == HtmlElement::preformatted ? step : 0;
  }

  void begin(HtmlElement element) {
    if (element == HtmlElement::lineBreak) {
      text_ += '\n';
    } else if (element != HtmlElement::inlineText && element != HtmlElement::link) {
      flush();
    }
    // A table within a cell: the one around it is there for its looks.
    if (element == HtmlElement::table) row_.finish(page_);
    if (element == HtmlElement::cell) row_.startCell();
  }

  void finish(HtmlElement element) {
    if (element == HtmlElement::heading) return flushAs(Kind::heading);
    if (element != HtmlElement::inlineText && element != HtmlElement::link &&
        element != HtmlElement::lineBreak) {
      flush();
    }
    if (element == HtmlElement::row || element == HtmlElement::table) row_.finish(page_);
  }

  // Ends the paragraph at hand.
  void flush() {
    if (text_.empty()) return;
    // A table of links is a table, so cells are not asked.
    const bool isLinks = linkBytes_ * 100 > text_.size() * LINK_PERCENT;
    if (asides_ > 0 || (isLinks && cells_ == 0)) return flushAs(Kind::aside);
    if (cells_ == 0 || preformatted_ > 0 || text_.size() > MOST_CELL_BYTES) {
      return flushAs(Kind::paragraph);
    }
    row_.add(text_);
    forget();
  }

  void flushAs(Kind kind) {
    row_.finish(page_);
    if (kind == Kind::heading) {
      page_.add(asides_ > 0 ? Kind::aside : kind, text_);
    } else {
      page_.addLines(kind, text_);
    }
    forget();
  }

  void forget() {
    text_.clear();
    linkBytes_ = 0;
  }

  DocumentBuilder page_;
  std::vector<Open> open_;
  TableRow row_;
  std::string text_;  // of the paragraph at hand
  std::string title_;
  std::size_t linkBytes_ = 0;  // of it
  bool isTooDeep_ = false;     // for good: the parser closes what is open when it is stopped
  // How many elements of each sort are open.
  int hidden_ = 0;
  int asides_ = 0;
  int links_ = 0;
  int cells_ = 0;
  int titles_ = 0;
  int preformatted_ = 0;
};

struct Parsing {
  HtmlText text;
  htmlParserCtxtPtr parser = nullptr;
};

void onStart(void* context, const xmlChar* name, const xmlChar** attributes) {
  auto& parsing = *static_cast<Parsing*>(context);
  parsing.text.start(name, attributes);
  if (parsing.text.isTooDeep() || parsing.text.isFull()) xmlStopParser(parsing.parser);
}

void onEnd(void* context, const xmlChar* name) { static_cast<Parsing*>(context)->text.end(name); }

void onText(void* context, const xmlChar* text, int length) {
  static_cast<Parsing*>(context)->text.text(view(text).substr(0, static_cast<std::size_t>(length)));
}

struct FreeParser {
  void operator()(htmlParserCtxtPtr parser) const { htmlFreeParserCtxt(parser); }
};

// The page in `utf8` as a document without a method.
ReadDocument parseHtml(std::string_view utf8, std::size_t limitCharacters) {
  if (utf8.empty()) return ReadFailure::noText;
  if (utf8.size() > std::size_t{std::numeric_limits<int>::max()}) return ReadFailure::tooLarge;
  const std::unique_ptr<htmlParserCtxt, FreeParser> parser(
      htmlCreateMemoryParserCtxt(utf8.data(), static_cast<int>(utf8.size())));
  if (!parser) return ReadFailure::decodingFailed;
  Parsing parsing{HtmlText(limitCharacters), parser.get()};
  htmlSAXHandler handler{};
  handler.startElement = onStart;
  handler.endElement = onEnd;
  handler.characters = onText;
  handler.ignorableWhitespace = onText;
  handler.cdataBlock = onText;
  *parser->sax = handler;
  parser->userData = &parsing;
  (void)htmlCtxtUseOptions(parser.get(), HTML_PARSE_NONET | HTML_PARSE_NOERROR |
                                             HTML_PARSE_NOWARNING | HTML_PARSE_IGNORE_ENC);
  // Otherwise it would take the text for ISO 8859-1 until the page says something else.
  (void)xmlSwitchEncoding(parser.get(), XML_CHAR_ENCODING_UTF8);
  (void)htmlParseDocument(parser.get());  // any text is a page
  if (parsing.text.isTooDeep()) return ReadFailure::tooLarge;
  return parsing.text.take();
}

// Takes all of these: <meta charset="X">, <meta http-equiv="Content-Type" content="text/html;
// charset=X">, <?xml version="1.0" encoding="X"?>.
// The encoding that the page says it has, in lower case.
std::string declaredEncoding(std::string_view bytes) {
  const std::string head = asciiLowerCase(bytes.substr(0, PRESCAN_BYTES));
  std::size_t at = head.find("charset");
  if (at == std::string::npos && head.starts_with("<?xml")) at = head.find("encoding");
  if (at == std::string::npos) return {};
  at = head.find('=', at);
  if (at != std::string::npos) at = head.find_first_not_of("= \t\n\"'", at);
  if (at == std::string::npos) return {};
  return head.substr(at, head.find_first_of(" \t\n\"';/>?", at) - at);
}

std::optional<std::string> utf8Page(std::string_view bytes, std::string encoding) {
  if (encoding.empty()) encoding = declaredEncoding(bytes);
  // Whoever could read that such a page says UTF-16 has not read it in UTF-16.
  const bool saysNothing = encoding.empty() || encoding.starts_with("utf-");
  if (!saysNothing && bytes.find('\0') == std::string_view::npos) {
    if (auto text = decodedFrom(bytes, encoding)) return text;
  }
  if (auto text = decodedText(bytes, Extent::whole)) return text;
  if (encoding != "utf-8" || bytes.find('\0') != std::string_view::npos) return std::nullopt;
  return repairUtf8(std::string(bytes));
}

// A page of nothing but links is about them.
void promoteAsides(std::vector<DocumentBlock>& blocks) {
  const bool hasText = std::any_of(blocks.begin(), blocks.end(), [](const DocumentBlock& block) {
    return block.kind != Kind::aside && block.kind != Kind::heading;
  });
  for (DocumentBlock& block : blocks) {
    if (!hasText && block.kind == Kind::aside) block.kind = Kind::paragraph;
  }
}

}  // namespace

std::optional<ReadFailure> addHtml(std::string_view bytes, const std::string& encoding,
                                   DocumentBuilder& document) {
  const auto utf8 = utf8Page(bytes, encoding);
  if (!utf8) return ReadFailure::decodingFailed;
  auto read = parseHtml(*utf8, document.charactersLeft());
  if (const auto* failure = std::get_if<ReadFailure>(&read)) {
    return *failure == ReadFailure::noText ? std::nullopt : std::optional(*failure);
  }
  auto& page = std::get<Document>(read);
  document.setTitle(page.title);
  document.setAuthor(page.author);
  promoteAsides(page.blocks);
  for (DocumentBlock& block : page.blocks) document.append(std::move(block));
  return std::nullopt;
}

ReadDocument readHtml(std::string_view bytes, std::size_t limitCharacters) {
  DocumentBuilder document("HTML", limitCharacters);
  if (const auto failure = addHtml(bytes, {}, document)) return *failure;
  return document.take();
}

}  // namespace norvast::extractor
