#pragma once

#include <string>

namespace pryvane::pdf {

/// The same document with its many small objects compressed together (object and cross-reference
/// streams), at half the size. Cairo does that itself from 1.18 on; a document that is packed
/// already, or in a form that this does not know, comes back as it is.
[[nodiscard]] std::string packedPdf(std::string document);

} // namespace pryvane::pdf
