[s]
Größe=海 🌊