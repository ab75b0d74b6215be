import QtQuick
import Orvella.Design
import Orvella.Shell

/// The signed-out window: one column, one question at a time.
Rectangle {
    id: root

    required property SignInModel model

    // The browser asks instead of the step that it was opened from.
    readonly property string asks: model.waitingForGoogle ? "email" : model.step

    // Whoever is asked anew finds it there already, so the step that shows it cannot tell what is new.
    readonly property string error: model.error
    readonly property string notice: model.notice
    onErrorChanged: tell(error)
    onNoticeChanged: tell(notice)

    function tell(text: string) {
        if (text !== "")
            Announcer.say(text, "error");
    }

    color: Theme.surface

    Component.onCompleted: model.checkMethods()

    ScrollPane {
        anchors.fill: parent
        contentHeight: Math.max(height, column.height + 96)
        interactive: contentHeight > height

        Column {
            id: column
            x: Math.round((parent.width - width) / 2)
            y: Math.max(48, Math.round((parent.height - height) / 2) - 12)
            width: 348

            OrvMark {
                size: 40
            }

            Item { width: 1; height: 24 }

            Text {
                width: parent.width
                height: 32
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.asks === "email" ? "Sign in to Orvella"
                    : root.asks === "password" ? "Enter your password" : "Check your email"
                font: Theme.signInTitle
                color: Theme.text
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            Text {
                visible: root.asks !== "email"
                width: parent.width
                topPadding: 4
                lineHeightMode: Text.FixedHeight
                lineHeight: 22
                textFormat: Text.PlainText
                text: root.asks === "code" ? "We emailed a 6-digit code to" : "Signing in as"
                font: Theme.reading
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            Text {
                visible: root.asks !== "email"
                width: parent.width
                height: 22
                elide: Text.ElideMiddle
                textFormat: Text.PlainText
                text: root.asks === "code" ? root.model.codeSentTo : root.model.address
                font: Theme.readingStrong
                color: Theme.text
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            SignInService {
                width: parent.width
                model: root.model
            }

            Item { width: 1; height: 20 }

            // One step's fields at a time, so that Tab never lands on those of another.
            Loader {
                id: step

                readonly property Item content: item as Item

                width: parent.width
                focus: true
                sourceComponent: root.model.waitingForGoogle ? google
                    : root.model.step === "email" ? email
                    : root.model.step === "password" ? password : code
                onLoaded: content.forceActiveFocus()
            }

            Item {
                visible: orLine.visible
                width: 1
                height: 20
            }

            Item {
                id: orLine
                visible: googleButton.visible
                width: parent.width
                height: 20

                Rectangle {
                    y: 10
                    width: parent.width
                    height: 1
                    color: Theme.border
                }

                Rectangle {
                    anchors.centerIn: parent
                    width: orText.implicitWidth + 24
                    height: 20
                    color: Theme.surface

                    Text {
                        id: orText
                        anchors.centerIn: parent
                        textFormat: Text.PlainText
                        text: "or"
                        font: Theme.small
                        color: Theme.text3
                    }
                }
            }

            Item {
                visible: googleButton.visible
                width: 1
                height: 14
            }

            OrvButton {
                id: googleButton
                visible: root.model.offersGoogle && !root.model.waitingForGoogle
                width: parent.width
                size: "large"
                text: "Continue with Google"
                iconName: "internet-services"
                enabled: !root.model.busy
                onClicked: root.model.continueWithGoogle()
            }
        }
    }

    Component {
        id: email

        SignInStep {
            model: root.model
            submitText: "Continue"
            onSubmitted: root.model.submitEmail()

            OrvField {
                width: parent.width
                focus: true
                large: true
                label: "Work email"
                placeholder: "you@company.com"
                accessibleDescription: root.model.error
                inputMethodHints: Qt.ImhEmailCharactersOnly | Qt.ImhNoAutoUppercase
                text: root.model.email
                onEdited: text => root.model.email = text
                onAccepted: root.model.submitEmail()
            }
        }
    }

    Component {
        id: password

        SignInStep {
            model: root.model
            submitText: "Sign in"
            alternative: root.model.offersCode ? "Email me a code instead" : ""
            onSubmitted: root.model.submitPassword()
            onAlternativeChosen: root.model.emailCodeInstead()

            OrvField {
                width: parent.width
                focus: true
                large: true
                secret: true
                label: "Password"
                accessibleDescription: root.model.error
                text: root.model.password
                onEdited: text => root.model.password = text
                onAccepted: root.model.submitPassword()
            }
        }
    }

    Component {
        id: code

        SignInStep {
            model: root.model
            submitText: "Sign in"
            alternative: root.model.resendLabel
            alternativeEnabled: root.model.resendIn === 0 && !root.model.busy
            onSubmitted: root.model.submitCode()
            onAlternativeChosen: root.model.resendCode()

            OrvCodeField {
                width: parent.width
                focus: true
                label: "6-digit code"
                error: root.model.error
                text: root.model.code
                onEdited: (text, whole) => {
                    const model = root.model;
                    model.code = text;
                    if (whole) model.submitCode();
                }
                Keys.onReturnPressed: event => submitBy(event)
                Keys.onEnterPressed: event => submitBy(event)

                function submitBy(event) {
                    if (!event.isAutoRepeat)
                        root.model.submitCode();
                }
            }
        }
    }

    Component {
        id: google

        GoogleWait {
            model: root.model
        }
    }
}
