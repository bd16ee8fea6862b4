#pragma once

#include <QString>

// How values of the back end become texts on a page.

/// An amount in yuan in the shortest form that tells it, never with an exponent; empty when it is no number.
QString shortMoney(double yuan);

/// Hours and minutes, not padded; nothing beyond a year either way.
QString hoursAndMinutes(qint64 minutes);

/// A text from outside for a small place: without marks that turn the order of what stands around it, and not
/// longer than 200 characters.
QString shownText(const QString& text);
