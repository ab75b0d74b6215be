pragma Singleton
import QtQuick

/// What somebody who listens is to hear although it has no focus. Of one matter only the newest is told, and once.
QtObject {
    id: root

    property var waiting: []

    function say(text: string, matter: string) {
        // Without a voice nobody takes them.
        waiting = [...waiting.filter(told => told.matter !== matter).slice(-7), {matter: matter, text: text}];
    }

    function next(): string {
        const text = waiting[0].text;
        waiting = waiting.slice(1);
        return text;
    }
}
