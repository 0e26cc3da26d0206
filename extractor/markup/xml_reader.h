// XML reader: one XML text as a row of events, by libxml2's reader.
#pragma once

#include <libxml/xmlreader.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace norvast::extractor {

// Fetches nothing, replaces no entities but XML's own five, and fails on nesting beyond 256. Names
// are those without prefixes: the kinds of file that are read so use none twice for two things.
class XmlReader {
 public:
  enum class Event { start, end, text, finished, failed };

  // `bytes` must outlive the reader. Their encoding is what they say, or `encoding` if it is given,
  // whatever they say.
  explicit XmlReader(std::string_view bytes, const char* encoding = nullptr);

  // The next event; after the last one always finished, or failed when the text is no XML from
  // there on. An element without content has a start and an end.
  Event next();

  // Of a start: goes on to the end of this element, which is passed over too.
  void skip();

  // Of a start or end: the element's name.
  std::string_view name() const;

  // Of a start: an attribute's value, empty when there is none.
  std::string attribute(std::string_view name) const;

  // Of a start: the value of the attribute that names another part of the file (r:id, r:embed).
  std::string relationshipId() const;

  // Of a text: as it stands, white space included.
  std::string_view text() const;

 private:
  struct Free {
    void operator()(xmlTextReader* reader) const { xmlFreeTextReader(reader); }
  };

  std::unique_ptr<xmlTextReader, Free> reader_;
  Event event_ = Event::start;
  bool isEmptyElement_ = false;  // whose end is still to be told
};

}  // namespace norvast::extractor
