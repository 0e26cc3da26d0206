// XML reader: one XML text as a row of events, by libxml2's reader.
#pragma once

#include <libxml/xmlreader.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace norvast::extractor {

// Loads nothing from elsewhere, replaces only the five entities of XML itself, and fails if
// elements are nested more than 256 deep. Names are given without their prefixes: none of the
// formats that are read here uses one name for two things.
class XmlReader {
 public:
  enum class Event { start, end, text, finished, failed };

  // `bytes` must outlive the reader. The encoding is `encoding` if that is given, else the one that
  // the bytes name.
  explicit XmlReader(std::string_view bytes, const char* encoding = nullptr);

  // Returns the next event. At the end of the text, and ever after, that is `finished`; from the
  // first fault on it is `failed`. An element without content has a start and an end.
  Event next();

  // After a start: passes over the rest of this element, its end included.
  void skip();

  // After a start or an end: returns the element's name.
  std::string_view name() const;

  // After a start: returns the value of the attribute, empty if there is none.
  std::string attribute(std::string_view name) const;

  // After a start: returns the value of the attribute that names another part of the file (r:id or
  // r:embed), empty if there is none.
  std::string relationshipId() const;

  // After a text: returns it as it stands, white space included.
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
