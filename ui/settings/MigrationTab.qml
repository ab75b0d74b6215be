/// Accounts that come from another platform, or go to one.
WebPane {
    heading: "Migration is done in the web app"
    text: "Accounts move to or from another outreach platform there."
        + (store.migrationPick.length > 0 ? "\nPicked: " + Array.from(store.migrationPick).join(", ") : "")
    path: "/settings/migration"
}
