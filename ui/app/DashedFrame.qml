import QtQuick
import Orvella.Design

/// A dashed outline: of a place where something may be put, or will not stay.
Canvas {
    id: root

    required property color ink

    onInkChanged: requestPaint()
    onPaint: {
        const pen = getContext("2d");
        pen.clearRect(0, 0, width, height);
        pen.strokeStyle = ink;
        pen.setLineDash([4, 4]);
        pen.beginPath();
        pen.roundedRect(0.5, 0.5, width - 1, height - 1, Theme.radiusControl, Theme.radiusControl);
        pen.stroke();
    }
}
