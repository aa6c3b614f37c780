#include "exec/ExecutingScript.h"
#include "exec/OptionKeyFlag.h"

namespace tavrel {

bool gExecutingScript = false;
bool sOptionKeyPressed = false;

} // namespace tavrel
