import Orvella.Design
import Orvella.Inbox

/// Conversations, drafts or the agent, behind the page's title.
OrvSegments {
    required property InboxStore store

    label: "What is shown"
    options: store.sections
    current: store.section
    onChosen: key => store.section = key
}
