/// The connection of assistants.
WebPane {
    heading: "Assistants are connected in the web app"
    text: "An assistant that speaks MCP can read and write what you can in this workspace."
    path: "/settings/mcp"
}
