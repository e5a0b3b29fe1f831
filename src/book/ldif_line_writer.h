// Writes the lines of LDIF so that strict readers take them: what is no safe text is base64.

#pragma once

#include <string>
#include <string_view>

namespace orvik::book {

// IsSafeString: whether RFC 2849 lets a value stand as it is; one that ends with a blank does not.
[[nodiscard]] bool IsSafeString(std::string_view value);

// AppendLdifLine: appends "NAME: VALUE", or "NAME:: BASE64" where the value must be, folded at 76
// bytes, with LF.
void AppendLdifLine(std::string_view name, std::string_view value, std::string& to);
// The same for a value that is base64 already, and for one that names where bytes are.
void AppendLdifBase64(std::string_view name, std::string_view base64, std::string& to);
void AppendLdifUrl(std::string_view name, std::string_view url, std::string& to);

}  // namespace orvik::book
