import QtQuick

/// Where the strip's fourteen days stand: columns of whole pixels, of which the last takes what is left over.
QtObject {
    id: root

    property real width: 0
    property real headWidth: 0
    readonly property int columnWidth: Math.floor((width - headWidth) / 14)

    function columnX(column: int): real {
        return headWidth + column * columnWidth;
    }

    function widthOf(column: int): real {
        return column === 13 ? width - columnX(13) : columnWidth;
    }
}
