// Placeholder until the upload client lands.
