#include "kit/models/setup/setupChanges.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(NewSetupProjectBody)
ORV_RECORD_CODERS(SetupProjectPatch)
ORV_RECORD_CODERS(SetupPhotoBody)
ORV_RECORD_CODERS(SetupDomainBody)
ORV_RECORD_CODERS(SetupDomainsBody)
ORV_RECORD_CODERS(RegistrarLookup)

QMap<QString, QString> RegistrarLookup::byDomain() const {
  QMap<QString, QString> registrars;
  for (const auto& [name, held] : holders.asKeyValueRange()) {
    const auto* domains = std::get_if<JSONValue::Array>(&held.storage());
    if (!domains) continue;
    for (const JSONValue& each : *domains)
      if (const auto* domain = std::get_if<QString>(&each.storage())) registrars.insert(domain->toLower(), name);
  }
  return registrars;
}

}  // namespace orv
