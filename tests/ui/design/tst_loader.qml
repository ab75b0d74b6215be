pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import QtTest
import Orvella.Design

TestCase {
    id: testCase

    property string word: "of this file"

    name: "Loader"
    when: windowShown
    width: 400
    height: 300
    visible: true

    Component {
        id: small

        Item {
            readonly property string says: testCase.word

            implicitWidth: 20
            implicitHeight: 10
        }
    }

    Component {
        id: large

        Item {
            implicitWidth: 200
            implicitHeight: 100
        }
    }

    Component {
        id: popup

        T.Popup {
            readonly property string says: testCase.word
        }
    }

    Component {
        id: loose

        OrvLoader {
            readonly property SignalSpy changes: SignalSpy { signalName: "itemChanged" }

            sourceComponent: small
            Component.onCompleted: changes.target = this
        }
    }

    Component {
        id: fixed

        OrvLoader {
            width: 80
            height: 40
            sourceComponent: small
        }
    }

    function test_sizes() {
        const free = createTemporaryObject(loose, testCase);
        compare(free.item.says, "of this file");
        compare(free.width, 20);
        free.item.implicitWidth = 30;
        compare(free.width, 30);
        free.sourceComponent = large;
        compare([free.width, free.height].join(), "200,100");

        const given = createTemporaryObject(fixed, testCase);
        compare([given.item.width, given.item.height].join(), "80,40");
        given.item.implicitWidth = 300;
        compare(given.width, 80);
        given.width = 90;
        compare(given.item.width, 90);
        given.sourceComponent = large;
        compare([given.item.width, given.item.height].join(), "90,40");
    }

    function test_makesAndLetsGo() {
        const loader = createTemporaryObject(loose, testCase);
        const first = loader.item;
        loader.active = false;
        compare(loader.item, null);
        compare(loader.width, 0);
        compare(first.visible, false);
        compare(loader.changes.count, 1);
        loader.active = true;
        verify(loader.item !== null && loader.item !== first);
        loader.changes.clear();
        loader.sourceComponent = large;
        compare(loader.changes.count, 1);
        loader.sourceComponent = null;
        compare(loader.item, null);
        compare(loader.changes.count, 2);
    }

    function test_makesPopups() {
        const loader = createTemporaryObject(loose, testCase);
        loader.sourceComponent = popup;
        compare(loader.item.says, "of this file");
        compare(loader.item.parent, loader);
        loader.item.open();
        tryCompare(loader.item, "opened", true);
        loader.active = false;
        compare(loader.item, null);
    }
}
