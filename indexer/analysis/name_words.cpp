#include "indexer/analysis/name_words.h"

#include <algorithm>
#include <unordered_set>

namespace norvast::indexer {
namespace {

using WordSet = std::unordered_set<std::string_view>;

// The words between the blanks of a list.
WordSet wordSet(std::string_view list) {
  WordSet words;
  for (std::size_t start = 0; start < list.size();) {
    const std::size_t end = std::min(list.find(' ', start), list.size());
    if (end > start) words.insert(list.substr(start, end - start));
    start = end + 1;
  }
  return words;
}

}  // namespace

bool isMonth(std::string_view word) {
  static const WordSet MONTHS = wordSet(
      "January February March April May June July August September October November December "
      "Jan Feb Mar Apr Jun Jul Aug Sep Sept Oct Nov Dec "
      "Januar Jänner Februar März Mai Juni Juli Oktober Dezember Okt Dez "
      "janvier février mars avril mai juin juillet août septembre octobre novembre décembre "
      "enero febrero marzo abril mayo junio julio agosto septiembre octubre noviembre diciembre "
      "gennaio febbraio aprile maggio giugno luglio settembre ottobre dicembre "
      "janeiro fevereiro março maio junho julho setembro outubro novembro dezembro "
      "januari februari maart april mei juni juli augustus september oktober december");
  return word.size() >= 3 && MONTHS.contains(word);
}

bool isWeekday(std::string_view word) {
  static const WordSet WEEKDAYS = wordSet(
      "Monday Tuesday Wednesday Thursday Friday Saturday Sunday Mon Tue Wed Thu Fri Sat Sun "
      "Montag Dienstag Mittwoch Donnerstag Freitag Samstag Sonnabend Sonntag");
  return WEEKDAYS.contains(word);
}

bool isConnector(std::string_view word) {
  static const WordSet CONNECTORS =
      wordSet("of the & van von der den de del della dei di da do dos du des la le y zu zum ten");
  return CONNECTORS.contains(word);
}

bool isArticleInNames(std::string_view word) {
  return word == "the" || word == "la" || word == "le" || word == "der" || word == "den";
}

bool isTitle(std::string_view word) {
  static const WordSet TITLES = wordSet(
      "Dr Mr Mrs Ms Prof Herr Herrn Frau Mme Mlle Monsieur Madame Sr Sra Señor Señora Signor "
      "Signora "
      "Sig Dott Chapter Section Figure Table Appendix Part Note Example Page Volume Step Kapitel "
      "Abschnitt Abbildung Tabelle Anhang Teil Seite Hinweis Beispiel Schritt Chapitre Tableau "
      "Annexe "
      "Partie Remarque Exemple Étape Capítulo Sección Figura Tabla Apéndice Nota Ejemplo Paso "
      "Capitolo Sezione Tabella Appendice Esempio Passo Hoofdstuk");
  return TITLES.contains(word);
}

bool isOpener(std::string_view word) {
  static const WordSet OPENERS = wordSet(
      "dear hello hi hey thanks cheers regards subject see use using install click select choose "
      "enter open press type run add set create note todo warning new old yes no ok okay ask visit "
      "call write read check make sure first second third finally next last today yesterday "
      "tomorrow "
      "mail meet contact with via by author version copyright "
      "liebe lieber hallo danke sehr siehe installieren klicken wählen öffnen drücken geben neue "
      "neuer "
      "neues gruß grüße heute gestern morgen "
      "cher chère bonjour merci voir utiliser installer cliquez choisissez ouvrez entrez nouveau "
      "nouvelle querido querida estimado estimada hola gracias véase vea usar instalar pulse elija "
      "abra "
      "nuevo nueva caro cara ciao grazie vedere vedi usare installare premere scegliere aprire "
      "nuovo "
      "nuova");
  return OPENERS.contains(word);
}

bool isPlacePreposition(std::string_view word, Language language) {
  static const WordSet ENGLISH = wordSet("in at from near");
  static const WordSet GERMAN = wordSet("in aus nach");
  static const WordSet FRENCH = wordSet("à en chez");
  static const WordSet SPANISH = wordSet("en desde");
  static const WordSet ITALIAN = wordSet("a in da");
  static const WordSet PORTUGUESE = wordSet("em desde");
  static const WordSet DUTCH = wordSet("in uit te");
  switch (language) {
    case Language::english:
      return ENGLISH.contains(word);
    case Language::german:
      return GERMAN.contains(word);
    case Language::french:
      return FRENCH.contains(word);
    case Language::spanish:
      return SPANISH.contains(word);
    case Language::italian:
      return ITALIAN.contains(word);
    case Language::portuguese:
      return PORTUGUESE.contains(word);
    case Language::dutch:
      return DUTCH.contains(word);
  }
  return false;
}

bool isGermanDeterminer(std::string_view word) {
  static const WordSet DETERMINERS = wordSet(
      "der die das den dem des ein eine einen einem einer eines kein keine keinen keinem keiner "
      "jeder jede jedes jeden jedem diese dieser dieses diesen diesem welche welcher welches alle "
      "allen aller viele vielen mehrere einige zwei drei vier mein meine dein sein seine ihr ihre "
      "ihren "
      "ihrem ihrer unser unsere im am zum zur beim vom ins ans manche solche andere anderen mehr "
      "weitere folgende folgenden neue neuen");
  return DETERMINERS.contains(word);
}

bool isPlacelessNoun(std::string_view word) {
  static const WordSet NOUNS = wordSet(
      "Form Betracht Frage Kraft Anspruch Betrieb Gang Angriff Kauf Ausschau Gründen Sicht Regel "
      "Höhe Bezug Ruhe Auftrag Arbeit Zukunft Anlehnung Fällen Teilen Klammern Zeiten Bedarf "
      "Wunsch "
      "Jahren Monaten Tagen Stunden Minuten Sekunden Prozent Dateien Paketen Holz Glas Hause");
  return NOUNS.contains(word);
}

}  // namespace norvast::indexer
