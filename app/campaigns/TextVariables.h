#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace orv {

/// What the editor knows of an email's text. All positions count UTF-16 units, as the text controls do.

/// A stretch of text to set off.
struct TextMark {
  enum class Kind { variable, spin };
  Kind kind = Kind::variable;
  qsizetype start = 0;
  qsizetype length = 0;
  bool operator==(const TextMark&) const = default;
};

/// Variables ("{{firstName}}") and spin groups ("{Hi|Hello}"), from left to right, over line ends too.
QList<TextMark> marksIn(QStringView text);

/// The variable that the person is in the middle of.
struct TypedVariable {
  /// Of its "{{".
  qsizetype start = 0;
  /// What of the name stands between the braces and the cursor.
  QString name;
  bool operator==(const TypedVariable&) const = default;
};
std::optional<TypedVariable> variableBeingTyped(QStringView text, qsizetype cursor);

/// One change of a text, to be applied as one step of its undo history.
struct TextEdit {
  /// What goes.
  qsizetype start = 0;
  qsizetype length = 0;
  /// What comes in its place.
  QString text;
  /// What is selected afterwards; the cursor alone when both are the same.
  qsizetype selectionStart = 0;
  qsizetype selectionEnd = 0;
  bool operator==(const TextEdit&) const = default;
};
QString edited(const QString& text, const TextEdit& edit);
/// The edit that makes `after` of `before` and leaves what both begin and end with.
TextEdit difference(QStringView before, QStringView after);

/// The text as a text control holds it: one line feed between two lines, whatever ends them here.
QString withLineFeeds(const QString& text);
/// `text` after the control that shows it has gone from `before` to `after`. The lines that stayed keep their ends.
QString followed(const QString& text, const QString& before, const QString& after);

/// Puts a variable in place of the one being typed, or else of the selection.
TextEdit variableEdit(QStringView text, qsizetype selectionStart, qsizetype selectionEnd, const QString& name);

enum class FormatCommand { bold, italic, spinText, bullets, numbers, link };
/// A command given twice takes back what it did; spin text and link excepted.
TextEdit formatEdit(FormatCommand command, QStringView text, qsizetype selectionStart, qsizetype selectionEnd);

}  // namespace orv
