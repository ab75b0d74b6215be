#include "kit/models/leads/leadTarget.h"

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadCount LeadTarget::count() const {
  if (const Ids* ticked = ids()) return {.value = ticked->size(), .exact = true};
  const Filter& matches = *filter();
  if (matches.first && *matches.first <= matches.count.value) return {.value = *matches.first, .exact = true};
  return matches.count;
}

QString LeadTarget::description() const {
  const LeadCount known = count();
  if (ids()) return Format::counted(known.value, u"selected lead"_s, u"selected leads"_s);
  return (known.exact ? QString() : u"about "_s) + Format::grouped(known.value) + u" matching leads"_s;
}

}  // namespace orv
