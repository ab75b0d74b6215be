#pragma once

#include "kit/models/leads/lead.h"

/// What the leads' page says of them, in words.
namespace orv::LeadWords {

/// The person's name, or what else tells the lead apart; never empty.
QString name(const Lead& lead);
/// "Hamburg, Germany".
QString place(const Lead& lead);
/// The address and the phone are not known yet.
bool isLocked(const Lead& lead);
/// "Valid", "Catch-all"; a word that this build does not know as it stands.
QString verification(const LeadVerification& verification);
/// "LinkedIn".
QString database(const QString& source);
/// What a lead's trade is called there: "Industry", "Category".
QString industryTitle(const QString& database);
/// "€4.1M / yr"; empty for none.
QString revenue(const Lead& lead);
/// An address of the web without what all of them begin with.
QString link(const std::optional<QString>& address);
/// An instant's day, "7 Mar"; empty for none.
QString day(const std::optional<QString>& instant);
/// "1 lead", "1,200 leads".
QString counted(qint64 count);
/// "About 1,200 leads match".
QString matches(const LeadCount& count);

}  // namespace orv::LeadWords
