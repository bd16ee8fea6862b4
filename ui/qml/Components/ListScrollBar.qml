import QtQuick 2.15
import QtQuick.Controls 2.15

// Shows where a list stands, and that there is more of it than fits.
ScrollBar {
    width: 12
    policy: size < 1 ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
}
