# The areas of the program, as the window has them. Of each, Campaigns say, there are
#   app/campaigns/  the target OrvellaAppCampaigns, with campaignsArea() in CampaignsArea.h: all that the shell knows of it
#   ui/campaigns/   the target OrvellaCampaigns, the QML module Orvella.Campaigns
# Everything else follows from its word here.
set(ORVELLA_AREAS
  Accounts
  Analytics
  Campaigns
  Deliverability
  Inbox
  Leads
  Rampup
  Setup
  Settings
)
