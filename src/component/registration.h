// What registration writes. The entry points of the server stand in quillary/server.h.
#pragma once

#include <filesystem>
#include <string>

namespace quillary::server {

/// The class with its identifiers, the library that holds it, and its type description: the
/// interfaces, properties and operations by name. ASCII but for the path of the library.
std::string ClassDescription(const std::filesystem::path& library);

/// Writes the description to quillary/Quillaryv8.class below the folder, which is made if need be.
/// Throws Failure (raised) if it cannot be written.
void RegisterClass(const std::filesystem::path& data_folder);

/// Removes that file. Throws Failure (raised) if it cannot be removed.
void UnregisterClass(const std::filesystem::path& data_folder);

}  // namespace quillary::server
