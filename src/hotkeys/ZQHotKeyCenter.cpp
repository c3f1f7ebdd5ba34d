// Placeholder until the hot key center lands.
