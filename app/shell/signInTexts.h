#pragma once

#include <QString>

#include "kit/api/APIError.h"

namespace orv::SignInTexts {

bool isCompleteCode(const QString& code);
/// What a refused sign-in says to the person.
QString errorLine(const APIError& error);

}  // namespace orv::SignInTexts
