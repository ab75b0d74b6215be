import QtQuick
import Qt.labs.lottieqt

LottieAnimation {
    source: "qrc:/qt/qml/Orvella/Shell/intro.json"
    loops: 1
    autoPlay: true
    quality: LottieAnimation.HighQuality
}
