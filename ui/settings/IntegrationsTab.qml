/// Keys, hooks and registrars.
WebPane {
    heading: "Integrations are connected in the web app"
    text: "API keys, webhooks and domain registrars. What is connected there works here at once."
    path: "/settings/integrations"
}
