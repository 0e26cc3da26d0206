// What the indexer makes of a text: its summary, entities and passages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "document/type_group.h"
#include "indexer/analysis/embedded_text.h"
#include "indexer/analysis/entities.h"
#include "indexer/analysis/outline.h"
#include "indexer/analysis/passages.h"
#include "indexer/analysis/summary.h"
#include "indexer/analysis/text_language.h"
#include "language/languages.h"
#include "text/unicode.h"

namespace norvast {
using namespace indexer;

namespace {

using Kind = DocumentBlock::Kind;
using Texts = std::vector<std::string>;

Outline outlineOfText(const std::string& text, const std::string& name = "a.txt") {
  return outlineOf({"text", "", "", {{Kind::paragraph, text}}}, name);
}

std::string summaryOf(const Document& document, const std::string& name) {
  const Outline outline = outlineOf(document, name);
  return summarize(outline, name, languageOf(outline));
}

std::string summaryOf(const std::string& text, const std::string& name = "a.txt") {
  return summaryOf({"text", "", "", {{Kind::paragraph, text}}}, name);
}

Texts entitiesIn(const std::string& text) {
  const Outline outline = outlineOfText(text);
  return findEntities(outline, languageOf(outline));
}

Texts passagesOf(const std::string& text) {
  Texts texts;
  for (QuotablePassage& passage : cutPassages(outlineOfText(text))) texts.push_back(passage.text);
  return texts;
}

TEST(TextLanguage, IsToldByItsFunctionWords) {
  const struct {
    std::string text;
    const Language& language;
  } rows[] = {
      {"the report of the garden", ENGLISH},
      {"Der Bericht und die Rechnung", GERMAN},
      {"Le rapport est dans la cour", FRENCH},
      {"El informe y los pedidos de la casa", SPANISH},
      {"Il rapporto della cucina e degli orti", ITALIAN},
      {"O relatório não foi feito pelas escolas", PORTUGUESE},
      {"Het verslag en een rekening", DUTCH},
      {"Bericht und Rechnung 2026", ENGLISH},  // one function word is too few to tell
  };
  for (const auto& row : rows) {
    EXPECT_EQ(languageOf(outlineOfText(row.text)).name, row.language.name) << row.text;
  }
}

TEST(Summary, IsTheSentencesWithTheTextsOwnWords) {
  const std::string text =
      "# Notes\n\nThe weather was fine on that day. The pump of the garden association is broken,\n"
      "and the garden needs a new pump.\n\n- A new garden pump costs 400 euros!\n\nIrrelevant "
      "aside without any end";
  EXPECT_EQ(
      summaryOf(text),
      "Notes: The weather was fine on that day. The pump of the garden association is broken, and "
      "the garden needs a new pump. A new garden pump costs 400 euros!");

  std::string longer;
  for (int number = 0; number < 500; ++number) {
    longer += "Sentence number " + std::to_string(number) + " speaks of harvest and compost. ";
  }
  EXPECT_LE(countClusters(summaryOf(longer)), LONGEST_SUMMARY_CLUSTERS);
  EXPECT_TRUE(summaryOf(longer).ends_with("compost."));
}

TEST(Summary, BeginsWithWhatTheTextIs) {
  const std::string gist = "Salmon with a crisp skin takes ten minutes in the pan.";
  const struct {
    Document document;
    const char* name;
    std::string summary;
  } rows[] = {
      {{"", "Pan-seared salmon", "", {{Kind::aside, "Home News."}, {Kind::paragraph, gist}}},
       "a.html",
       "Pan-seared salmon: " + gist},
      {{"", "untitled", "", {{Kind::heading, "Salmon at home"}, {Kind::paragraph, gist}}},
       "a.docx",
       "Salmon at home: " + gist},
      {{"", "final v2.docx", "", {{Kind::paragraph, gist}}}, "a.pdf", "final v2.docx: " + gist},
      {{"", "final-v2.docx", "", {{Kind::paragraph, gist}}}, "a.pdf", gist},
      {{"",
        "Re: AW: Dinner",
        "\"Maria Keller\" <m@example.org>",
        {{Kind::detail, "To: x"},
         {Kind::paragraph, "Copyright 2020 by the whole kitchen crew."},
         {Kind::paragraph, gist},
         {Kind::paragraph, "> The kitchen asked about dinner and fish."}}},
       "a.eml",
       "Dinner (Maria Keller): " + gist},
      {{"",
        "",
        "",
        {{Kind::part, "Dinner"},
         {Kind::paragraph, gist},
         {Kind::part, "Re: Dinner"},
         {Kind::part, "Fish"}}},
       "a.mbox",
       "Dinner; Fish: " + gist},
      {{"",
        "",
        "",
        {{Kind::part, "Costs"}, {Kind::tableRow, "Item\tEuro"}, {Kind::tableRow, "Fish\t9"}}},
       "a.xlsx",
       "Costs: Item, Euro; Fish, 9"},
      {{"", "", "", {{Kind::paragraph, "Supper\n======\n\n" + gist}}}, "a.rst", "Supper: " + gist},
      {{"",
        "",
        "",
        {{Kind::paragraph,
          "---\na: b\n---\n# Fish\n**Salmon** with a [crisp](x) skin takes "
          "ten `minutes` in the pan.<br>\n```\nNo code with salmon takes a crisp skin in this "
          "pan.\n```"}}},
       "a.md",
       "Fish: " + gist},
      {{"",
        "",
        "",
        {{Kind::paragraph, "the salmon with a crisp skin takes minutes in a hot pan."},
         {Kind::paragraph, gist}}},
       "cut.docx",
       gist},
      {{"", "", "", {{Kind::paragraph, "import fish\n\n# " + gist + "\n"}}}, "a.py", gist},
  };
  for (const auto& row : rows)
    EXPECT_EQ(summaryOf(row.document, row.name), row.summary) << row.name;
}

TEST(Summary, KnowsTheAbbreviationsOfTheLanguage) {
  const std::string german =
      "Die Pumpe des Vereins kostet ca. Fr. 400 und wird von Dr. Keller am 14. Mai repariert.";
  EXPECT_EQ(summaryOf(german), german);
}

TEST(Summary, OfATextWithoutSentencesIsItsFirstLines) {
  EXPECT_EQ(summaryOf("time,bed\n\n1,A\n"), "time,bed 1,A");
  EXPECT_EQ(summaryOf(" \n\t\n"), "");
  EXPECT_EQ(summaryOf(""), "");
  std::string clusters;
  for (int number = 0; number < 1000; ++number) clusters += "e\u0301";
  EXPECT_EQ(countClusters(summaryOf(clusters)), LONGEST_SUMMARY_CLUSTERS);
}

TEST(Entities, AreFoundByPlainRules) {
  const struct {
    const char* text;
    Texts entities;
  } rows[] = {
      {"We met Maria Keller in Zürich. Later Maria Keller left.", {"Maria Keller", "Zürich"}},
      {"Ask Dr. Jean-Luc O'Brien, of Holzmann & Sons.", {"Jean-Luc O'Brien", "Holzmann & Sons"}},
      {"Please ask Tom first. Ask Tom Okafor!", {"Tom Okafor"}},
      {"The Garden is open. This Monday we sow.", {}},
      {"Due 14 May 2026, 2026-05-14, 14.05.2026, May 3rd, 2027 or 5/14/2026.",
       {"14 May 2026", "2026-05-14", "14.05.2026", "May 3rd 2027", "5/14/2026"}},
      {"Mail <a.b@example.org> or see https://example.org/x, call +41 44 555 01 23.",
       {"a.b@example.org", "https://example.org/x", "+41 44 555 01 23"}},
      {"Gartenstrasse 8 and 12 Baker Street", {"Gartenstrasse 8", "12 Baker Street"}},
      {"std::vector<Foo Bar> x = New Thing();\nid,First Name,Last Name,a,b,c,d", {}},
      {"1.2.3 and 99/99 and 3.14.15", {}},
      {"Extension +41 22 rings on 12 March, not on 3 Sep or Sep 4.", {"12 March"}},
      {"We took Maria Keller's pump.", {"Maria Keller"}},
      {"We buy Garden Pumps here, as each garden needs pumps.", {}},
      {"café René Dupont, cafe\u0301 Rene\u0301 Dupont", {"René Dupont"}},
      {"See [home](https://example.org/a), <a href=\"http://x.org\">x</a> and "
       "https://a\"b.org.",
       {"https://example.org/a", "http://x.org"}},
      {"a@b, @example.org, a..b@example.org, http://localhost, www.a", {}},
      {"Installieren Sie die Pumpe. Die Pumpe Nummer drei kauft Maria Keller in Zürich am 3. Mai "
       "2026. Grafische Oberflächen sind nicht das Ziel des Vereins.",
       {"Maria Keller", "Zürich", "3 Mai 2026"}},
      {"Nous avons vu Maria Keller à Paris le 3 mai 2026. L'usage est libre, et c'est une bonne "
       "chose pour l'Europe, à l'Europe et de l'Europe.",
       {"Europe", "Maria Keller", "Paris", "3 mai 2026"}},
      {"El proyecto es de Ana María López de Madrid, en Sevilla, y nació el 3 de mayo de 2026.",
       {"Ana María López de Madrid", "Sevilla", "3 de mayo de 2026"}},
      {"Il progetto è nato a Roma con Maria Rossi. Non è stato facile per la società.",
       {"Roma", "Maria Rossi"}},
      {"", {}},
  };
  for (const auto& row : rows) EXPECT_EQ(entitiesIn(row.text), row.entities) << row.text;

  std::string many;
  for (char letter = 'a'; letter <= 'z'; ++letter)
    many += "mail " + std::string(2, letter) + "@x.org, ";
  EXPECT_EQ(entitiesIn(many).size(), MOST_ENTITIES);
}

TEST(Passages, CoverTheTextAndEndWhereTheyCan) {
  const std::string sentence = "The quick brown fox jumps over the lazy dog. ";
  std::string paragraphs;
  for (int paragraph = 0; paragraph < 6; ++paragraph) {
    for (int count = 0; count < 10; ++count) paragraphs += sentence;
    paragraphs += "\n\n";
  }
  for (const std::string& passage : passagesOf(paragraphs)) EXPECT_EQ(passage.size(), 449U);

  std::string oneParagraph;
  for (int count = 0; count < 100; ++count) oneParagraph += sentence;
  for (const std::string& passage : passagesOf(oneParagraph))
    EXPECT_TRUE(passage.ends_with("dog."));

  EXPECT_EQ(passagesOf(" \n "), Texts());
  EXPECT_EQ(passagesOf(" short \n"), Texts{"short"});
}

TEST(Passages, NeverCutACharacterAndLoseNothing) {
  std::string families;
  for (int count = 0; count < 1500; ++count)
    families += std::to_string(count) + "👨‍👩‍👧";
  std::string numbers;
  for (int count = 0; count < 200'000; ++count) numbers += std::to_string(count);
  std::string accents;
  for (int count = 0; count < 2000; ++count)
    accents += std::to_string(count) + (count % 7 == 0 ? " \u0301" : "e\u0301");
  for (const std::string& text : {families, accents, numbers, std::string(500, '\xC3'),
                                  "\u0301" + std::string(100'000, '\n') + "y"}) {
    std::string together;
    for (const std::string& passage : passagesOf(text)) {
      EXPECT_LE(countClusters(passage), 600U);
      EXPECT_FALSE(passage.empty());
      together += passage;
    }
    const auto bare = [](std::string bytes) {
      std::erase_if(bytes, [](char byte) { return byte == ' ' || byte == '\n'; });
      return bytes;
    };
    EXPECT_EQ(bare(together), bare(text));
  }
  for (const std::string& passage : passagesOf(families)) {
    EXPECT_FALSE(passage.starts_with("\u200D") || passage.ends_with("\u200D"));
  }
}

TEST(Passages, KnowTheirHeadingAndStandOnce) {
  std::string filler;
  for (int number = 0; number < 9; ++number)
    filler += "Filler " + std::to_string(number) + " fills. ";
  const std::string copy(590, 'x');
  const Document document{"",
                          "",
                          "",
                          {{Kind::part, "One"},
                           {Kind::heading, "Pumps"},
                           {Kind::paragraph, filler + filler + filler},
                           {Kind::heading, "Hoses"},
                           {Kind::paragraph, filler + filler + filler},
                           {Kind::part, "Two"},
                           {Kind::paragraph, copy},
                           {Kind::paragraph, copy},
                           {Kind::paragraph, copy}}};
  const Document slides{"",
                        "",
                        "",
                        {{Kind::part, "One"},
                         {Kind::paragraph, "Pumps."},
                         {Kind::part, "Two"},
                         {Kind::paragraph, "Hoses."}}};
  const auto apart = cutPassages(outlineOf(slides, "a.pptx"));
  ASSERT_EQ(apart.size(), 2U);
  EXPECT_EQ(apart[0].text, "One\n\nPumps.");

  Texts found;
  for (const QuotablePassage& passage : cutPassages(outlineOf(document, "a.docx"))) {
    found.push_back(passage.heading + "|" + passage.text.substr(0, 10));
  }
  EXPECT_EQ(found, Texts({"One|One\n\nPumps", "One: Hoses|Hoses\n\nFil", "Two|Two\n\nxxxxx",
                          "Two|xxxxxxxxxx"}));
}

TEST(Passages, AreNamedByTheBeginningOfALongHeading) {
  std::string words;
  for (int number = 0; number < 300; ++number) words += "aü";
  const Outline outline =
      outlineOf({"", words, words, {{Kind::heading, words}, {Kind::paragraph, words}}}, "a.docx");
  const std::string name = words.substr(0, 499);  // the 500th byte is within a character
  EXPECT_EQ(Texts({outline.title, outline.author, cutPassages(outline).front().heading}),
            Texts({name, name, name}));
}

TEST(Passages, OfTablesOfValuesAreBounded) {
  const auto lines = [](const std::string& start, const std::string& end) {
    std::string text;
    for (int number = 1000; number < 9000; ++number) text += start + std::to_string(number) + end;
    return text;
  };
  for (const std::string& values :
       {lines("Maria Keller,", ",Zürich,\n"),
        lines("2026-05-14 10:00:00 pump[", "]: started again\n"), lines("12.5 7 ", " bar\n")}) {
    EXPECT_EQ(passagesOf(values).size(), 20U) << values.substr(0, 40);
  }
  EXPECT_GT(passagesOf(lines("The pump of garden ", " works.\n")).size(), 100U);
}

TEST(EmbeddedText, SaysWhereAPassageStandsOnce) {
  EXPECT_EQ(embeddedPassage("a.txt", "Pumps", "Hoses", "Text."), "a.txt\nPumps\nHoses\nText.");
  EXPECT_EQ(embeddedPassage("a.txt", "Pumps", "Pumps", "Pumps\n\nText."), "a.txt\nPumps\n\nText.");
  EXPECT_EQ(embeddedPassage("a.txt", "Pumps", "Pumps", "Text."), "a.txt\nPumps\nText.");
  EXPECT_EQ(embeddedFile("a", "Sum.", {"One", std::string(3000, 'x')}),
            "a\nSum.\nOne\n" + std::string(1996, 'x'));
}

TEST(TypeGroup, ComesFromTheSuffixElseFromTheContent) {
  EXPECT_EQ(typeGroup("eml"), "Mail");
  EXPECT_EQ(typeGroup("html"), "Web pages");
  EXPECT_EQ(typeGroup("pptx"), "Presentations");
  EXPECT_EQ(typeGroup("mail "), "");
  const struct {
    std::string bytes;
    const char* group;
  } rows[] = {{std::string("\0\0\0 ftypisom", 12), "Video"},
              {std::string("\0\0\0 ftypM4A ", 12), "Audio"},
              {"#!/bin/sh", "Code"},
              {"Zürich", ""},
              {"", ""}};
  for (const auto& row : rows) EXPECT_EQ(typeGroupOfContent(row.bytes), row.group) << row.bytes;
}

}  // namespace
}  // namespace norvast
