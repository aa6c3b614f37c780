#pragma once

#include "base/PropertyList.h"

namespace tavrel {

/// Whether the user hears of an outcome that is no news, too.
enum class NotifyIfUnsuccessful { no, yes };

/// Looks for a newer version, at most once in ten days; for use before an item runs. Blocks for as
/// long as the download takes.
void doCheckUpdates();

/// Fetches the list of versions and looks into it; true when it was fetched and understood.
bool checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful notify);

/// Compares the installed version with the listed one and offers a newer one; false when one is
/// announced without its number. Versions are decimal numbers: 2.10 is older than 2.9.
bool checkForTavrelUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful notify,
                                                  const PropertyList& list);

} // namespace tavrel
