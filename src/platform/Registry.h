#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The registry: one text file in the well-known .reg form, UTF-8, at `$ORVALE_REGISTRY` if that is set, else
/// `$XDG_CONFIG_HOME/orvale/user.reg`, else `~/.config/orvale/user.reg`.
///
///     [HKEY_CURRENT_USER\SoftWare\...]
///     "name"=dword:00000002
///     "name"=hex:02,00,00,00
///
/// Names of keys and values compare without case; in quotes, \\ and \" stand for themselves.
namespace orvale {

/// Where the registry file is; empty where the environment tells nothing.
std::string RegistryPath();

/// The four-byte number of a value; none if the file, the key or the value isn't there or can't be read as one.
std::optional<std::uint32_t> ReadRegistryNumber(std::u16string_view key, std::u16string_view valueName);

/// Sets a value, making the file and the key where they are missing; all other lines stay as they are, and of a link
/// the file that it leads to is the one that is replaced. A file that is there and can't be read as one of UTF-8 stays
/// too. Throws std::system_error (of which std::filesystem::filesystem_error is one).
void WriteRegistryNumber(std::u16string_view key, std::u16string_view valueName, std::uint32_t number);

}  // namespace orvale
