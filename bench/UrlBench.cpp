// Escaping 64 MB for a URL beside the escaping of a library, and beside the least that a new text
// of that length costs. The library takes a few megabytes at once and no more.

#include "scripting/UrlString.h"

#include <benchmark/benchmark.h>
#include <curl/curl.h>

#include <cstring>
#include <memory>

namespace tavrel {
namespace {

constexpr std::size_t length = std::size_t{64} << 20;
constexpr std::size_t librarysPart = std::size_t{1} << 20;

std::string repeated(std::string_view words) {
  std::string text;
  text.reserve(length + words.size());
  while (text.size() < length)
    text.append(words);
  text.resize(length);
  return text;
}

const std::string& mixedText() {
  static const std::string text = repeated(
      "The quick brown fox, Müller & 日本語; see <http://example.org/?q=1&z=2>.\nThen it sleeps. ");
  return text;
}

const std::string& asciiText() {
  static const std::string text = repeated("The quick brown fox jumps over the lazy dog, 100%.\n");
  return text;
}

void urlMemcpy(benchmark::State& state) {
  const std::string& text = asciiText();
  for (auto _ : state) {
    const std::unique_ptr<char[]> copy(new char[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size());
    benchmark::DoNotOptimize(copy.get());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(urlMemcpy)->Unit(benchmark::kMillisecond);

void urlEscape(benchmark::State& state, const std::string& (*text)()) {
  for (auto _ : state)
    benchmark::DoNotOptimize(escapedForUrl(text(), LineEndings::carriageReturnLineFeed).size());
}
BENCHMARK_CAPTURE(urlEscape, ascii, asciiText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(urlEscape, mixed, mixedText)->Unit(benchmark::kMillisecond);

void urlEscapeOfLibrary(benchmark::State& state) {
  const std::string& text = mixedText();
  for (auto _ : state)
    for (std::size_t at = 0; at < text.size(); at += librarysPart)
      curl_free(curl_easy_escape(nullptr, text.data() + at, static_cast<int>(librarysPart)));
}
BENCHMARK(urlEscapeOfLibrary)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tavrel
