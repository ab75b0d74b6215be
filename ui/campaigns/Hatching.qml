import QtQuick
import Orvella.Design

/// Ground of a day on which nothing is sent.
Canvas {
    id: root

    readonly property color ink: Theme.pressed

    onInkChanged: requestPaint()
    onPaint: {
        const pen = getContext("2d");
        pen.clearRect(0, 0, width, height);
        pen.strokeStyle = ink;
        pen.lineWidth = 2;
        pen.beginPath();
        for (let x = -height; x < width; x += 8) {
            pen.moveTo(x, height);
            pen.lineTo(x + height, 0);
        }
        pen.stroke();
    }
}
