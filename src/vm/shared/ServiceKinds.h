#pragma once

#include <QVariantList>

// How technicians are booked: the choices of a service, each {label, value} in the order in which they are
// shown.

/// The technician's shift.
QVariantList shiftChoices();

/// How he came to the service.
QVariantList clockKindChoices();
