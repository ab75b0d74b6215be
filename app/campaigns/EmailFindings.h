#pragma once

#include <QStringList>

#include "kit/models/campaigns/emailPreview.h"

namespace orv {

/// An email as a lead gets it, looked through for what nobody meant to send.
struct EmailFindings {
  /// Where something is wrong. Counts UTF-16 units.
  struct Place {
    qsizetype start = 0;
    qsizetype length = 0;
    bool operator==(const Place&) const = default;
  };

  /// A sentence for each, the service's own first; empty for an email that looks right.
  QStringList lines;
  /// The words around what is missing, as the lead would read them: "Around a third".
  QString reading;
  /// The text without its empty lines; a note stands where something is missing: "city is empty".
  QString body;
  QList<Place> wrong;
  bool subjectIsWrong = false;
  /// It is the lead that has to be mended, and not the text.
  bool inLead = false;
};

/// The texts that were rendered.
struct EmailTexts {
  QString subject;
  QString body;
};

/// `variables` are the lead's, as the service tells them with the rendering. An email that replies in a thread needs no
/// subject.
EmailFindings findingsIn(const QcPreview& rendered, const EmailTexts& written,
                         const std::optional<QList<PreviewResponse::Variable>>& variables, bool needsSubject);

}  // namespace orv
