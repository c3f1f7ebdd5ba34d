// Placeholder until the upload panel lands.
