#include "script/syntax/Terminology.h"

#include <algorithm>
#include <array>

namespace tavrel::script {
namespace {

using enum Dictionary;
constexpr DirectParameter none = DirectParameter::none;
constexpr DirectParameter allowed = DirectParameter::allowed;

constexpr auto commands = std::to_array<CommandTerm>({
    {language, "do shell script", allowed,
     "as,administrator privileges,user name,password,altering line endings"},
    {language, "display dialog", allowed,
     "default answer,hidden answer,buttons,default button,cancel button,with title,with "
     "icon,giving up after"},
    {language, "display alert", allowed,
     "message,as,buttons,default button,cancel button,giving up after"},
    {language, "display notification", allowed, "with title,subtitle,sound name"},
    {language, "choose from list", allowed,
     "with title,with prompt,default items,ok button name,cancel button name,multiple selections "
     "allowed,empty selection allowed"},
    {language, "choose file name", none, "with prompt,default name,default location"},
    {language, "choose file", none,
     "with prompt,of type,default location,multiple selections allowed"},
    {language, "choose folder", none, "with prompt,default location,multiple selections allowed"},
    {language, "set the clipboard to", allowed, ""},
    {language, "the clipboard", none, "as"},
    {language, "current date", none, ""},
    {language, "random number", allowed, "from,to,with seed"},
    {language, "path to", allowed, "from,folder creation,as"},
    {language, "offset", none, "of,in"},
    {language, "open location", allowed, "error reporting"},
    {language, "open for access", allowed, "write permission"},
    {language, "close access", allowed, ""},
    {language, "get eof", allowed, ""},
    {language, "set eof", allowed, "to"},
    {language, "read", allowed, "from,for,to,before,until,using delimiters,using delimiter,as"},
    {language, "write", allowed, "to,starting at,for,as"},
    {language, "info for", allowed, "size"},
    {language, "list folder", allowed, "invisibles"},
    {language, "system attribute", allowed, ""},
    {language, "system info", none, ""},
    {language, "time to gmt", none, ""},
    {language, "ascii character", allowed, ""},
    {language, "character id", allowed, ""},
    {language, "string id", allowed, ""},
    {language, "text id", allowed, ""},
    {language, "ascii number", allowed, ""},
    {language, "run script", allowed, "with parameters"},
    {language, "delay", allowed, ""},
    {language, "beep", allowed, ""},
    {language, "say", allowed, "using,speaking rate,waiting until completion"},
    {language, "round", allowed, "rounding"},
    {language, "count", allowed, ""},
    {language, "exists", allowed, ""},
    {language, "run", allowed, ""},
    {language, "launch", allowed, ""},
    {language, "activate", allowed, ""},
    {language, "quit", allowed, "saving"},
    {application, "open", allowed, "using,with properties"},
    {application, "reopen", allowed, ""},
    {application, "close", allowed, "saving,saving in"},
    {fileManager, "reveal", allowed, ""},
    {fileManager, "select", allowed, ""},
    {fileManager, "move", allowed, "to,replacing"},
    {fileManager, "duplicate", allowed, "to,replacing"},
    {fileManager, "delete", allowed, ""},
    {fileManager, "make", none, "new,at,with properties"},
    {terminal, "do script", allowed, "in"},
    {systemEvents, "keystroke", allowed, "using"},
    {systemEvents, "key code", allowed, "using"},
    {systemPreferences, "reveal", allowed, ""},
    {self, "copy to clipboard", none, ""},
    {self, "convert", allowed, "target encoding,target line endings,raw data"},
    {self, "uninstall", none, ""},
});

constexpr auto types = std::to_array<TypeTerm>({
    {language, "text item", "text items"},
    {language, "item", "items"},
    {language, "character", "characters"},
    {language, "word", "words"},
    {language, "paragraph", "paragraphs"},
    {language, "unicode text", ""},
    {language, "text", "texts"},
    {language, "string", "strings"},
    {language, "integer", "integers"},
    {language, "real", "reals"},
    {language, "number", "numbers"},
    {language, "boolean", "booleans"},
    {language, "list", "lists"},
    {language, "record", "records"},
    {language, "date", "dates"},
    {language, "posix file", ""},
    {language, "alias", "aliases"},
    {language, "class", ""},
    {language, "constant", "constants"},
    {language, "application", "applications"},
    {language, "file", "files"},
    {application, "window", "windows"},
    {application, "document", "documents"},
    {fileManager, "finder window", "finder windows"},
    {fileManager, "folder", "folders"},
    {fileManager, "disk", "disks"},
    {terminal, "tab", "tabs"},
    {systemEvents, "application process", "application processes"},
    {systemEvents, "process", "processes"},
    {systemPreferences, "pane", "panes"},
});

constexpr auto properties = std::to_array<NameTerm>({
    {language, "text item delimiters"},
    {language, "quoted form"},
    {language, "posix path"},
    {language, "short date string"},
    {language, "date string"},
    {language, "time string"},
    {language, "text returned"},
    {language, "button returned"},
    {language, "gave up"},
    {language, "name extension"},
    {language, "displayed name"},
    {language, "modification date"},
    {language, "creation date"},
    {language, "current application"},
    {application, "name"},
    {application, "version"},
    {application, "frontmost"},
    {application, "running"},
    {fileManager, "selection"},
    {fileManager, "home"},
    {fileManager, "desktop"},
    {fileManager, "trash"},
    {fileManager, "startup disk"},
    {systemEvents, "visible"},
    {self, "context object"},
    {self, "host application name"},
    {self, "current localization"},
    {self, "long version"},
});

constexpr auto constants = std::to_array<NameTerm>({
    {language, "missing value"},
    {language, "desktop folder"},
    {language, "home folder"},
    {language, "documents folder"},
    {language, "downloads folder"},
    {language, "temporary items"},
    {language, "startup disk"},
    {language, "applications folder"},
    {language, "pictures folder"},
    {language, "music folder"},
    {language, "movies folder"},
    {language, "public folder"},
    {language, "library folder"},
    {language, "application support"},
    {language, "user domain"},
    {language, "system domain"},
    {language, "local domain"},
    {language, "toward zero"},
    {language, "to nearest"},
    {language, "as taught in school"},
    {language, "white space"},
    {language, "numeric strings"},
    {systemEvents, "command down"},
    {systemEvents, "option down"},
    {systemEvents, "control down"},
    {systemEvents, "shift down"},
    {self, "cr"},
    {self, "crlf"},
    {self, "lf"},
});

constexpr auto reserved = std::to_array<std::string_view>(
    {"and",         "as",       "back",     "begins",  "beginning", "by",     "considering",
     "contain",     "contains", "continue", "copy",    "div",       "does",   "else",
     "end",         "ends",     "equal",    "equals",  "error",     "every",  "exit",
     "false",       "from",     "front",    "given",   "global",    "if",     "ignoring",
     "in",          "into",     "is",       "it",      "its",       "last",   "local",
     "me",          "middle",   "mod",      "my",      "not",       "of",     "on",
     "or",          "prop",     "property", "put",     "ref",       "repeat", "return",
     "returning",   "script",   "set",      "some",    "starts",    "tell",   "that",
     "the",         "then",     "thru",     "through", "timeout",   "times",  "to",
     "transaction", "true",     "try",      "until",   "where",     "while",  "whose",
     "with",        "without",  "are",      "comes",   "greater",   "less"});

constexpr auto prepositions = std::to_array<std::string_view>(
    {"about",   "above",  "against", "apart from", "around", "aside from", "at",         "below",
     "beneath", "beside", "between", "by",         "for",    "from",       "instead of", "into",
     "on",      "onto",   "out of",  "over",       "since",  "thru",       "under",      "to"});

template <typename List> bool holds(const List& list, std::string_view word) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

} // namespace

Dictionary dictionaryOf(std::string_view applicationName) {
  if (applicationName == "finder" || applicationName == "path finder")
    return fileManager;
  if (applicationName == "terminal")
    return terminal;
  if (applicationName == "system events")
    return systemEvents;
  if (applicationName == "system preferences")
    return systemPreferences;
  return applicationName == "tavrel" ? self : application;
}

std::span<const CommandTerm> commandTerms() {
  return commands;
}

std::span<const TypeTerm> typeTerms() {
  return types;
}

std::span<const NameTerm> propertyTerms() {
  return properties;
}

std::span<const NameTerm> constantTerms() {
  return constants;
}

bool isReserved(std::string_view word) {
  return holds(reserved, word);
}

bool isPreposition(std::string_view word) {
  return holds(prepositions, word);
}

} // namespace tavrel::script
