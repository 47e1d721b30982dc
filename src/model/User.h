#pragma once

#include <QMap>
#include <QString>

/// A user account of the server, with whether it is connected. The id is the console's own.
class User
{
public:
    int getId() const { return id; }
    void setId(int userId) { id = userId; }
    /// The login name, unique.
    const QString& getName() const { return name; }
    void setName(const QString& userName);
    /// Whether that is the account that every server has: its title stays, and so does the account.
    static bool isAdmin(const QString& userName) { return userName == QLatin1String("admin"); }
    /// The display name.
    const QString& getTitle() const { return title; }
    /// Also writes the header, changed or not, if this is the logged-in user.
    void setTitle(const QString& userTitle);
    /// The name of the user's role, empty for none.
    const QString& getRole() const { return role; }
    void setRole(const QString& roleName) { role = roleName; }
    /// The same for a user that the page knows, which is told of the change.
    void changeRole(const QString& roleName);
    /// Whether the user is connected to the server now; always told to the page.
    bool getStatus() const { return status; }
    void setStatus(bool connected);
    /// Whether this is the logged-in user.
    bool getCurrent() const { return current; }
    void setCurrent(bool isCurrent) { current = isCurrent; }
    /// The user's stored values; an unknown key gives an empty text.
    QString getValue(const QString& key) const { return values.value(key); }
    void setValue(const QString& key, const QString& value) { values.insert(key, value); }

    /// Adds the user's row to the page.
    void addToPage() const;

private:
    int id = 0;
    QString name;
    QString title;
    QString role;
    bool status = false;
    bool current = false;
    QMap<QString, QString> values;
};
