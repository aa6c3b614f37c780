#include "platform/linux/text/EncodingTable.h"

#include <array>

namespace tavrel {

namespace {

// The framework has numbers of its own for a few encodings; the others have their list number with
// this bit.
constexpr StringEncoding outsideFramework = 0x80000000;

// The columns are the fields of EncodingRow. Numbers are public constants of the platform, names
// are those of its English list.
constexpr auto listedEncodings = std::to_array<EncodingRow>({
    {0x0000, 30, "Western (Mac OS Roman)", "macintosh"},
    {0x0006, outsideFramework | 0x0006, "Greek (Mac OS)", "x-mac-greek"},
    {0x0007, outsideFramework | 0x0007, "Cyrillic (Mac OS)", "x-mac-cyrillic"},
    {0x001D, outsideFramework | 0x001D, "Central European (Mac OS)", "x-mac-centraleurroman"},
    {0x0023, outsideFramework | 0x0023, "Turkish (Mac OS)", "x-mac-turkish"},
    {0x0098, outsideFramework | 0x0098, "Cyrillic (Mac OS Ukrainian)", "x-mac-ukraine"},
    {0x0100, 10, "Unicode (UTF-16)", "UTF-16LE", ByteOrderMark::first},
    {0x0201, 5, "Western (ISO Latin 1)", "ISO-8859-1"},
    {0x0202, 9, "Central European (ISO Latin 2)", "ISO-8859-2"},
    {0x0203, outsideFramework | 0x0203, "Western (ISO Latin 3)", "ISO-8859-3"},
    {0x0204, outsideFramework | 0x0204, "Central European (ISO Latin 4)", "ISO-8859-4"},
    {0x0205, outsideFramework | 0x0205, "Cyrillic (ISO 8859-5)", "ISO-8859-5"},
    {0x0206, outsideFramework | 0x0206, "Arabic (ISO 8859-6)", "ISO-8859-6"},
    {0x0207, outsideFramework | 0x0207, "Greek (ISO 8859-7)", "ISO-8859-7"},
    {0x0208, outsideFramework | 0x0208, "Hebrew (ISO 8859-8)", "ISO-8859-8"},
    {0x0209, outsideFramework | 0x0209, "Turkish (ISO Latin 5)", "ISO-8859-9"},
    {0x020A, outsideFramework | 0x020A, "Nordic (ISO Latin 6)", "ISO-8859-10"},
    {0x020B, outsideFramework | 0x020B, "Thai (ISO 8859-11)", "ISO-8859-11"},
    {0x020D, outsideFramework | 0x020D, "Baltic (ISO Latin 7)", "ISO-8859-13"},
    {0x020E, outsideFramework | 0x020E, "Celtic (ISO Latin 8)", "ISO-8859-14"},
    {0x020F, outsideFramework | 0x020F, "Western (ISO Latin 9)", "ISO-8859-15"},
    {0x0210, outsideFramework | 0x0210, "Romanian (ISO Latin 10)", "ISO-8859-16"},
    {0x0400, outsideFramework | 0x0400, "Latin-US (DOS)", "IBM437"},
    {0x0405, outsideFramework | 0x0405, "Greek (DOS)", "IBM737"},
    {0x0406, outsideFramework | 0x0406, "Baltic (DOS)", "IBM775"},
    {0x0410, outsideFramework | 0x0410, "Western (DOS Latin 1)", "IBM850"},
    {0x0411, outsideFramework | 0x0411, "Greek (DOS Greek 1)", "IBM851"},
    {0x0412, outsideFramework | 0x0412, "Central European (DOS Latin 2)", "IBM852"},
    {0x0413, outsideFramework | 0x0413, "Cyrillic (DOS)", "IBM855"},
    {0x0414, outsideFramework | 0x0414, "Turkish (DOS)", "IBM857"},
    {0x0415, outsideFramework | 0x0415, "Portuguese (DOS)", "IBM860"},
    {0x0416, outsideFramework | 0x0416, "Icelandic (DOS)", "IBM861"},
    {0x0417, outsideFramework | 0x0417, "Hebrew (DOS)", "IBM862"},
    {0x0418, outsideFramework | 0x0418, "Canadian French (DOS)", "IBM863"},
    {0x0419, outsideFramework | 0x0419, "Arabic (DOS)", "IBM864"},
    {0x041A, outsideFramework | 0x041A, "Nordic (DOS)", "IBM865"},
    {0x041B, outsideFramework | 0x041B, "Russian (DOS)", "IBM866"},
    {0x041C, outsideFramework | 0x041C, "Greek (DOS Greek 2)", "IBM869"},
    {0x041D, outsideFramework | 0x041D, "Thai (Windows, DOS)", "windows-874"},
    {0x0420, 8, "Japanese (Windows, DOS)", "windows-31j"},
    {0x0421, outsideFramework | 0x0421, "Simplified Chinese (Windows, DOS)", "windows-936"},
    {0x0422, outsideFramework | 0x0422, "Korean (Windows, DOS)", "windows-949"},
    {0x0423, outsideFramework | 0x0423, "Traditional Chinese (Windows, DOS)", "windows-950"},
    {0x0500, 12, "Western (Windows Latin 1)", "windows-1252"},
    {0x0501, 15, "Central European (Windows Latin 2)", "windows-1250"},
    {0x0502, 11, "Cyrillic (Windows)", "windows-1251"},
    {0x0503, 13, "Greek (Windows)", "windows-1253"},
    {0x0504, 14, "Turkish (Windows Latin 5)", "windows-1254"},
    {0x0505, outsideFramework | 0x0505, "Hebrew (Windows)", "windows-1255"},
    {0x0506, outsideFramework | 0x0506, "Arabic (Windows)", "windows-1256"},
    {0x0507, outsideFramework | 0x0507, "Baltic (Windows)", "windows-1257"},
    {0x0508, outsideFramework | 0x0508, "Vietnamese (Windows)", "windows-1258"},
    {0x0510, outsideFramework | 0x0510, "Korean (Windows Johab)", "johab"},
    {0x0600, 1, "Western (ASCII)", "US-ASCII"},
    {0x0628, outsideFramework | 0x0628, "Japanese (Shift JIS X0213)", "Shift_JISX0213"},
    {0x0631, outsideFramework | 0x0631, "Chinese (GBK)", "GBK"},
    {0x0632, outsideFramework | 0x0632, "Simplified Chinese (GB 18030)", "GB18030"},
    {0x0820, 21, "Japanese (ISO 2022-JP)", "ISO-2022-JP"},
    {0x0821, outsideFramework | 0x0821, "Japanese (ISO 2022-JP-2)", "ISO-2022-JP-2"},
    {0x0822, outsideFramework | 0x0822, "Japanese (ISO 2022-JP-1)", "ISO-2022-JP-1"},
    {0x0830, outsideFramework | 0x0830, "Chinese (ISO 2022-CN)", "ISO-2022-CN"},
    {0x0831, outsideFramework | 0x0831, "Chinese (ISO 2022-CN-EXT)", "ISO-2022-CN-EXT"},
    {0x0840, outsideFramework | 0x0840, "Korean (ISO 2022-KR)", "ISO-2022-KR"},
    {0x0920, 3, "Japanese (EUC)", "EUC-JP"},
    {0x0930, outsideFramework | 0x0930, "Simplified Chinese (GB 2312)", "EUC-CN"},
    {0x0931, outsideFramework | 0x0931, "Traditional Chinese (EUC)", "EUC-TW"},
    {0x0940, outsideFramework | 0x0940, "Korean (EUC)", "EUC-KR"},
    {0x0A01, outsideFramework | 0x0A01, "Japanese (Shift JIS)", "Shift_JIS"},
    {0x0A02, outsideFramework | 0x0A02, "Cyrillic (KOI8-R)", "KOI8-R"},
    {0x0A03, outsideFramework | 0x0A03, "Traditional Chinese (Big 5)", "Big5"},
    {0x0A05, outsideFramework | 0x0A05, "Simplified Chinese (HZ GB 2312)", "HZ"},
    {0x0A06, outsideFramework | 0x0A06, "Traditional Chinese (Big 5 HKSCS)", "Big5-HKSCS"},
    {0x0A08, outsideFramework | 0x0A08, "Ukrainian (KOI8-U)", "KOI8-U"},
    {0x0C02, outsideFramework | 0x0C02, "Western (EBCDIC Latin 1)", "IBM037"},
    {0x04000100, outsideFramework | 0x04000100, "Unicode (UTF-7)", "UTF-7"},
    {0x08000100, 4, "Unicode (UTF-8)", "UTF-8"},
    {0x0C000100, outsideFramework | 0x0C000100, "Unicode (UTF-32)", "UTF-32LE",
     ByteOrderMark::first},
    {0x10000100, outsideFramework | 0x10000100, "Unicode (UTF-16BE)", "UTF-16BE"},
    {0x14000100, outsideFramework | 0x14000100, "Unicode (UTF-16LE)", "UTF-16LE"},
    {0x18000100, outsideFramework | 0x18000100, "Unicode (UTF-32BE)", "UTF-32BE"},
    {0x1C000100, outsideFramework | 0x1C000100, "Unicode (UTF-32LE)", "UTF-32LE"},
});

} // namespace

std::span<const EncodingRow> encodingTable() {
  return listedEncodings;
}

} // namespace tavrel
