#include "kit/models/mailboxes/googleWorkspace.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(GoogleWorkspaceStatus)
ORV_RECORD_CODERS(AddressBody)
ORV_RECORD_CODERS(AddressesBody)
ORV_RECORD_CODERS(GoogleDirectory)
ORV_RECORD_CODERS(GoogleConnectOutcome)
ORV_RECORD_CODERS(OAuthProviders)

}  // namespace orv
