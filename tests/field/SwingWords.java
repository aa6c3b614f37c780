import java.nio.file.Files;
import java.nio.file.Path;
import javax.swing.JFrame;
import javax.swing.JTextArea;
import javax.swing.SwingUtilities;

/** A text area with the contents of a file, which Ctrl+S saves: java SwingWords.java FILE */
class SwingWords {
  public static void main(String[] arguments) throws Exception {
    Path file = Path.of(arguments[0]);
    String text = Files.readString(file);
    SwingUtilities.invokeLater(() -> show(new JTextArea(text), file));
  }

  private static void show(JTextArea area, Path file) {
    JFrame frame = new JFrame("Words");
    area.registerKeyboardAction(
        event -> save(area, file),
        javax.swing.KeyStroke.getKeyStroke("control S"),
        javax.swing.JComponent.WHEN_FOCUSED);
    frame.add(area);
    frame.setSize(600, 400);
    frame.setDefaultCloseOperation(JFrame.EXIT_ON_CLOSE);
    frame.setVisible(true);
  }

  private static void save(JTextArea area, Path file) {
    try {
      Files.writeString(file, area.getText());
    } catch (java.io.IOException error) {
      throw new java.io.UncheckedIOException(error);
    }
  }
}
