#pragma once

class CodePage;

/// The Korean code page 1361, which few converters know: a syllable is one bit and three fields of
/// five bits, for its initial, vowel and final; symbols and Chinese characters are those of the
/// Korean standard set, in its order.
namespace Johab {

/// `korean`: a page with the standard set at its EUC places, such as 949.
void fill(CodePage& page, const CodePage& korean);

} // namespace Johab
