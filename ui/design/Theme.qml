pragma Singleton
import QtQuick

/// Every colour, font and measure of the program, and nothing else holds one. `dark` and `reducedMotion` are set by the
/// shell; everything follows by binding.
QtObject {
    id: root

    property bool dark: false
    property bool reducedMotion: false

    readonly property color bg: dark ? "#141517" : "#F4F4F1"
    readonly property color surface: dark ? "#1B1C1F" : "#FFFFFF"
    readonly property color raised: dark ? "#25272B" : "#FFFFFF"
    readonly property color sunken: dark ? "#101113" : "#EDEDE9"
    readonly property color hover: dark ? "#222428" : "#F3F3F0"
    readonly property color pressed: dark ? "#2B2D32" : "#E8E8E3"
    readonly property color selected: dark ? "#143038" : "#E2F0F3"
    readonly property color border: dark ? "#2D2F34" : "#E3E2DD"
    readonly property color borderField: dark ? "#44474D" : "#C8C7C1"
    readonly property color borderControl: dark ? "#7C7F86" : "#85847E"
    readonly property color text: dark ? "#ECECEA" : "#1B1C1E"
    readonly property color text2: dark ? "#B3B5BA" : "#505257"
    readonly property color text3: dark ? "#989BA1" : "#65676B"
    readonly property color accent: dark ? "#187286" : "#0B6579"
    readonly property color accentHover: dark ? "#1B7C91" : "#09566A"
    readonly property color accentPressed: dark ? "#135E6F" : "#074757"
    readonly property color accentSubtle: dark ? "#143038" : "#E2F0F3"
    readonly property color inkOnAccent: "#FFFFFF"
    readonly property color accentText: dark ? "#66C4D6" : "#0B6579"
    readonly property color positive: dark ? "#70CB90" : "#1A6B3C"
    readonly property color positiveSubtle: dark ? "#17301F" : "#E3F2E7"
    readonly property color warning: dark ? "#E2B562" : "#855000"
    readonly property color warningSubtle: dark ? "#34290F" : "#FAEFD7"
    readonly property color negative: dark ? "#F48F86" : "#B0261F"
    readonly property color negativeSubtle: dark ? "#3C1D1B" : "#FCE8E6"
    readonly property color negativeFill: dark ? "#B3352D" : "#B0261F"
    readonly property color negativeHover: dark ? "#C03B32" : "#981F19"
    readonly property color negativePressed: dark ? "#97291F" : "#801913"
    readonly property color neutral: dark ? "#B9BBC0" : "#4E5056"
    readonly property color neutralSubtle: dark ? "#2B2D32" : "#ECECE8"
    readonly property color focus: dark ? "#66C4D6" : "#0B6579"
    readonly property color tooltip: dark ? "#ECECEA" : "#26282C"
    readonly property color inkOnTooltip: dark ? "#1B1C1F" : "#F4F4F1"
    readonly property color toastAction: dark ? "#0B6579" : "#8FD8E6"
    readonly property color toastNegative: dark ? "#B0261F" : "#F48F86"
    readonly property color toastPositive: dark ? "#1A6B3C" : "#70CB90"
    readonly property color series1: dark ? "#56B9CD" : "#0B6579"
    readonly property color series2: dark ? "#EDB351" : "#B8791A"
    readonly property color series3: dark ? "#D9577F" : "#CC56B4"
    readonly property color series4: dark ? "#A37BF0" : "#5B36C9"
    /// By a series' place in its chart.
    readonly property list<color> seriesColors: [series1, series2, series3, series4]

    readonly property color scrim: dark ? "#8C000000" : "#47000000"
    readonly property color shadow: dark ? "#8C000000" : "#24000000"
    readonly property int shadowBlur: dark ? 28 : 24
    readonly property int shadowDrop: dark ? 10 : 8
    readonly property color focusHalo: Qt.alpha(root.focus, 0.28)
    /// Grounds and inks of avatars, by the person's initial.
    readonly property list<color> avatarGrounds: dark ? ["#1C2B3A", "#2B2438", "#1F2E22", "#38281C", "#36232A"]
                                                      : ["#DCE8F4", "#E9E2F3", "#DEEFE2", "#F6E6D8", "#F5E0E4"]
    readonly property list<color> avatarInks: dark ? ["#A9CBEB", "#CDB9EC", "#A5D6B1", "#EFBE95", "#EFAEBB"]
                                                   : ["#1F4B75", "#533A80", "#1E5A30", "#7A4210", "#842A3D"]

    // Qt 6.4 offers no OpenType features, so figures keep Inter's own widths; columns align by their right edge.
    readonly property string family: "Inter"
    readonly property font figure: Qt.font({family: family, pixelSize: 24, weight: Font.DemiBold, letterSpacing: -0.4})
    readonly property font pageTitle: Qt.font({family: family, pixelSize: 18, weight: Font.DemiBold, letterSpacing: -0.18})
    readonly property font signInTitle: figure
    readonly property font dialogTitle: Qt.font({family: family, pixelSize: 16, weight: Font.DemiBold})
    readonly property font paneTitle: Qt.font({family: family, pixelSize: 15, weight: Font.DemiBold})
    readonly property font paletteInput: Qt.font({family: family, pixelSize: 15})
    readonly property font emptyTitle: Qt.font({family: family, pixelSize: 14, weight: Font.DemiBold})
    readonly property font reading: Qt.font({family: family, pixelSize: 14})
    readonly property int readingLine: 22
    readonly property int readingWidth: 720
    readonly property font readingStrong: Qt.font({family: family, pixelSize: 14, weight: Font.Medium})
    readonly property font codeDigit: Qt.font({family: family, pixelSize: 20, weight: Font.DemiBold})
    readonly property font body: Qt.font({family: family, pixelSize: 13})
    readonly property font bodyStrong: Qt.font({family: family, pixelSize: 13, weight: Font.Medium})
    readonly property font bodyBold: Qt.font({family: family, pixelSize: 13, weight: Font.DemiBold})
    readonly property font small: Qt.font({family: family, pixelSize: 12})
    readonly property font smallStrong: Qt.font({family: family, pixelSize: 12, weight: Font.Medium})
    readonly property font micro: Qt.font({family: family, pixelSize: 11, weight: Font.Medium})
    readonly property font microText: Qt.font({family: family, pixelSize: 11})
    readonly property font microBold: Qt.font({family: family, pixelSize: 11, weight: Font.DemiBold})

    readonly property int radiusTag: 4
    readonly property int radiusControl: 6
    readonly property int radiusCard: 8
    readonly property int radiusFloat: 10
    readonly property int radiusDialog: 12

    readonly property int controlHeight: 30
    readonly property int controlHeightSmall: 26
    readonly property int controlHeightLarge: 36
    readonly property int pageSide: 24

    /// Movement and colour changes; none when the person asked for less motion.
    readonly property int hoverDuration: reducedMotion ? 0 : 120
    readonly property int menuDuration: reducedMotion ? 0 : 160
    readonly property int dialogDuration: reducedMotion ? 0 : 200
    readonly property int toastInDuration: reducedMotion ? 0 : 200
    readonly property int toastOutDuration: reducedMotion ? 0 : 160
    readonly property int pageDuration: reducedMotion ? 0 : 140
    /// Nothing shows that it is waiting before this long.
    readonly property int skeletonDelay: 100
    readonly property int busyAtLeast: 300
}
