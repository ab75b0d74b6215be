pragma Singleton
import QtQuick
import Orvella.Design

/// What every table shares. Without a memory each is at every start as it was made.
QtObject {
    property TableMemory memory: null
}
