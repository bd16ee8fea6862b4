#pragma once

#include "SlipReader.h"

#include <QImage>

/// The paper as the customer gets it, 48 columns wide. A null image in a program that can't draw text.
QImage slipPicture(const QVector<PaperLine>& lines);
