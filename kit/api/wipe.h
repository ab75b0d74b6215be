#pragma once

#include <strings.h>

namespace orv {

/// Overwrites and empties a text that nobody may find in memory afterwards. Whoever shares it loses it as well.
template <class Text>
void wipe(Text& text) {
  // A literal's memory cannot be written.
  if (text.data_ptr().isMutable())
    ::explicit_bzero(const_cast<typename Text::value_type*>(text.constData()),
                     size_t(text.size()) * sizeof(typename Text::value_type));
  text.clear();
}

}  // namespace orv
