#pragma once

#include <string>

namespace tavrel {

/// Tells the user that the list of versions could not be had.
void showUpdateError();

/// Tells the user that there is nothing newer.
void showUpToDate();

/// Offers a newer version and opens what the user chose: its download, and the history of
/// versions after it.
void offerNewVersion(const std::string& version, const std::string& url);

} // namespace tavrel
