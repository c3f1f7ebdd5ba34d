// Placeholder until the prefs units land.
