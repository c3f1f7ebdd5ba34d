// Placeholder until the grabber lands.
int main() { return 2; }
